// Asks about unsaved work before it is thrown away.
#pragma once

#include <string_view>

namespace quorvane {

// subject is "scene", "sequence", "farbtabelle" or "config"; any other is never asked about. True when
// the caller must stop: the user chose Cancel, or chose Yes and the save did not complete.
bool UnsavedChangesGuard(std::string_view subject);

} // namespace quorvane
