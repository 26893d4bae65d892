// What saving is alike in all four kinds of show file.
#pragma once

#include "files/filechoice.h"
#include "model/screen.h"

#include <string>
#include <string_view>

namespace quorvane {

// Asks for the file and writes the bytes that content makes; the file becomes the current one of its
// kind. False when the user cancelled or the file could not be written whole; status says so then.
bool SaveShowFile(const FileKind& kind, std::string_view proposedName, std::string (*content)(),
                  const Slot<std::string_view>& status);

// Without a wall there is nothing that a file could hold: refused with a message, since it would replace
// a good file by an empty one.
bool RefusedWithoutWall();

} // namespace quorvane
