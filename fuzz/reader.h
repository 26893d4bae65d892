// What the fuzz targets of the files share: a fresh program with a small wall, the bytes as a file in its
// folder, and what must hold after any file at all.
#pragma once

#include "files/filechoice.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"
#include "model/wall.h"
#include "platform/host.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace quorvane {

// Removes what it is named after when the process ends.
struct FolderForNow {
    std::filesystem::path Path;
    ~FolderForNow() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
};

inline void Require(bool holds) {
    if (!holds) std::abort();
}

// In memory where the system has such a folder: every save waits for its disk.
inline const std::filesystem::path& FuzzFolder() {
    static const FolderForNow folder{[] {
        const std::filesystem::path memory = "/dev/shm";
        const auto base =
            std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        auto path = base / ("quorvane-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(path);
        return path;
    }()};
    return folder.Path;
}

// The answer to every question is one that the length of the input chooses.
inline void FreshProgram(std::size_t size) {
    Show = ShowState{};
    Host = HostCalls{};
    Host.ProgramFolder = FuzzFolder().string();
    Host.MsgBox = [size](std::string_view, Buttons, std::string_view, Icon) {
        constexpr Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel};
        return answers[size % 3];
    };
    StartShow();
    Show.WallColumns = 3;
    Show.WallRows = 2;
    NeueWandLoad();
}

inline std::string PutFile(const char* name, const std::uint8_t* data, std::size_t size) {
    const auto file = FuzzFolder() / name;
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return file.string();
}

inline bool HasTwentyCharacters(const std::string& name) { return Padded20(name) == name; }

// The show can be shown, played and saved.
inline void RequireSoundShow() {
    Require(Show.ElementCount <= MaxElements);
    Require(HasTwentyCharacters(Show.WallName));
    Require(std::ranges::all_of(Show.UserColourName, HasTwentyCharacters));
    Require(Show.StepCount <= MaxLoadedSteps && Show.CurrentStep <= Show.StepCount);
    Require((Show.StepCount > 0) == Show.StatusFlags.Has(Status::SequenceExists));
    for (int step = 1; step <= Show.StepCount; ++step) Require(BlendOf(step) > 0);
    Require(!Show.StatusFlags.Has(Status::SaveToCurrentFile));
}

// Loads the bytes as the current file of their kind; when that worked, saves and loads them again.
inline void LoadAndSave(const FileKind& kind, const char* name, void (*load)(), bool (*save)(),
                        const std::uint8_t* data, std::size_t size) {
    FreshProgram(size);
    Show.*kind.CurrentFile = PutFile(name, data, size);
    {
        const CurrentFileOnly current;
        load();
    }
    RequireSoundShow();
    if ((Show.*kind.CurrentFile).empty()) return;
    {
        const CurrentFileOnly current;
        if (save()) load();
    }
    RequireSoundShow();
}

} // namespace quorvane
