#include "platform/datafolder.h"

#include "platform/programfolder.h"

namespace quorvane {

namespace {

std::string Choose(const std::optional<std::string>& given, std::string_view folderOfProgramFile) {
    if (given && !given->empty()) return *given;
    if (FolderIsWritable(folderOfProgramFile)) return std::string(folderOfProgramFile);
    const std::string own = UserDataFolder();
    return own.empty() ? std::string(folderOfProgramFile) : own;
}

} // namespace

std::string ChooseProgramFolder(const std::optional<std::string>& given,
                                std::string_view folderOfProgramFile) {
    std::error_code failed;
    const std::filesystem::path chosen = PathOf(Choose(given, folderOfProgramFile));
    const std::filesystem::path folder = std::filesystem::absolute(chosen, failed);
    if (failed) return TextOf(chosen);
    std::filesystem::create_directories(folder, failed);
    return TextOf(folder);
}

} // namespace quorvane
