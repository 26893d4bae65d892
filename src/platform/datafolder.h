// Where the program folder is: the folder of the settings, firmware, pictures, driver libraries and show
// files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

// True when a file could be made in that folder.
bool FolderIsWritable(std::string_view folder);

// The user's own data folder of the program. It need not exist. Empty when the user has none.
std::string UserDataFolder();

// The folder that the user gave when starting; else that of the program file when it is writable; else
// the user's data folder. Made when it is missing and can be made.
std::string ChooseProgramFolder(const std::optional<std::string>& given,
                                std::string_view folderOfProgramFile);

} // namespace quorvane
