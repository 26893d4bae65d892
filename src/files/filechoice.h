// The four kinds of show file: how the user is asked for one, and where it is looked for.
#pragma once

#include "model/show.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

struct FileKind {
    std::string_view Filter;
    std::string_view Extension;
    std::string_view Folder;       // below the program folder: where dialogs open without a current file
    std::string_view SearchFolder; // below the program folder: where a file that has moved is looked for
    std::string_view LoadTitle;
    std::string_view SaveTitle;
    std::string ShowState::*CurrentFile;
};

inline constexpr FileKind ConfigurationKind = {"*.CFG",
                                               "CFG",
                                               "config",
                                               "config",
                                               "Configuration Laden",
                                               "Configuration Speichern",
                                               &ShowState::ConfigFile};
inline constexpr FileKind ColourTableKind = {"*.QCT",
                                             "QCT",
                                             "Farbtbl",
                                             "Farbtbl",
                                             "Farbtabelle Laden",
                                             "Farbtabelle Speichern",
                                             &ShowState::ColourTableFile};
inline constexpr FileKind SceneKind = {
    "*.QSC", "QSC", "scenen", "scenen", "Scene Laden", "Scene Speichern", &ShowState::SceneFile};
// Saved in one folder and looked for in another on purpose.
inline constexpr FileKind SequenceKind = {"*.QSQ",
                                          "QSQ",
                                          "sequencen",
                                          "sequence",
                                          "Sequence Laden",
                                          "Sequence Speichern",
                                          &ShowState::SequenceFile};

// While it lives, file commands take the current file of their kind, if it has one, without asking.
struct CurrentFileOnly {
    CurrentFileOnly() { Show.StatusFlags.Set(Status::SaveToCurrentFile); }
    ~CurrentFileOnly() { Show.StatusFlags.Clear(Status::SaveToCurrentFile); }
    CurrentFileOnly(const CurrentFileOnly&) = delete;
    CurrentFileOnly& operator=(const CurrentFileOnly&) = delete;
};

// The file to work on: the current one, if there is one, while SaveToCurrentFile is set, else what the user
// chooses; nothing when he cancels. name is proposed; one with "*" or "?" in it is no file and chooses
// nothing.
std::optional<std::string> ChooseFileToLoad(const FileKind& kind, std::string_view name);
std::optional<std::string> ChooseFileToSave(const FileKind& kind, std::string_view name);

struct FoundFile {
    std::string Path;
    bool HasMoved = false; // it was not at its path, but in the folder of its kind
};

// The file at its path, else one of the same name in the folder where its kind is looked for.
std::optional<FoundFile> FindShowFile(const FileKind& kind, const std::string& path);

// What follows the last "/" or "\" of a path, since it may come from another system.
std::string FileNamePart(std::string_view path);

} // namespace quorvane
