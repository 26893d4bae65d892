#include "files/filechoice.h"

#include "platform/host.h"
#include "platform/programfolder.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace quorvane {

namespace fs = std::filesystem;

namespace {

fs::path MadeFolder(std::string_view name) {
    fs::path folder = FindInFolder(PathOf(Host.ProgramFolder), name);
    std::error_code notWritable; // the dialog opens elsewhere then
    fs::create_directories(folder, notWritable);
    return folder;
}

// The kind's own folder. It is made when it is missing, and so is the one where moved files are looked for.
std::string OwnFolder(const FileKind& kind) {
    const fs::path folder = MadeFolder(kind.Folder);
    MadeFolder(kind.SearchFolder);
    return TextOf(folder);
}

// The folder of the current file when it can be seen from here.
std::string LoadFolder(const FileKind& kind) {
    const fs::path folder = PathOf(Show.*kind.CurrentFile).parent_path();
    std::error_code unreachable;
    return !folder.empty() && fs::is_directory(folder, unreachable) ? TextOf(folder) : OwnFolder(kind);
}

bool TakesCurrentFile(const FileKind& kind) {
    return Show.StatusFlags.Has(Status::SaveToCurrentFile) && !(Show.*kind.CurrentFile).empty();
}

FileQuestion QuestionFor(const FileKind& kind, std::string_view title, std::string_view name) {
    FileQuestion question;
    question.Title = title;
    question.Filter = kind.Filter;
    question.Extension = kind.Extension;
    question.Name = name;
    return question;
}

std::optional<std::string> Accepted(std::optional<std::string> chosen) {
    if (chosen && FileNamePart(*chosen).find_first_of("*?") != std::string::npos) chosen.reset();
    if (chosen && chosen->empty()) chosen.reset();
    return chosen;
}

bool CanBeOpened(const fs::path& file) {
    std::error_code unreachable;
    return fs::is_regular_file(file, unreachable) && std::ifstream(file, std::ios::binary);
}

} // namespace

std::optional<std::string> ChooseFileToLoad(const FileKind& kind, std::string_view name) {
    if (TakesCurrentFile(kind)) return Show.*kind.CurrentFile;
    FileQuestion question = QuestionFor(kind, kind.LoadTitle, name);
    question.Folder = LoadFolder(kind);
    return Accepted(Host.AskOpenFile(question));
}

std::optional<std::string> ChooseFileToSave(const FileKind& kind, std::string_view name) {
    if (TakesCurrentFile(kind)) return Show.*kind.CurrentFile;
    FileQuestion question = QuestionFor(kind, kind.SaveTitle, name);
    question.Folder = OwnFolder(kind);
    return Accepted(Host.AskSaveFile(question));
}

std::optional<FoundFile> FindShowFile(const FileKind& kind, const std::string& path) {
    if (CanBeOpened(PathOf(path))) return FoundFile{path, false};
    const fs::path folder = FindInFolder(PathOf(Host.ProgramFolder), kind.SearchFolder);
    const std::string name = FileNamePart(path);
    if (name.empty()) return std::nullopt;
    const fs::path moved = FindInFolder(folder, name);
    if (!CanBeOpened(moved)) return std::nullopt;
    return FoundFile{TextOf(moved), true};
}

std::string FileNamePart(std::string_view path) {
    return std::string(path.substr(path.find_last_of("/\\") + 1));
}

} // namespace quorvane
