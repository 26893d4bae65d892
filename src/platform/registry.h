// The per-user store of single values, apart from the settings file: it holds what belongs to the
// machine and not to a show. On Windows it is the registry, below
// Software\VB and VBA Program Settings\Quorvane; elsewhere a text file of sections,
// $XDG_CONFIG_HOME/Quorvane/Quorvane.conf (~/.config when that is not set).
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// The value stored under section and key, or fallback when there is none.
std::string ReadSetting(std::string_view section, std::string_view key, std::string_view fallback);

// Stores a value of one line. All other values stay. Where nothing can be stored the program goes on
// without: the value then holds for this run only.
void WriteSetting(std::string_view section, std::string_view key, std::string_view value);

} // namespace quorvane
