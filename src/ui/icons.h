// The program's own pictures, drawn rather than loaded: they are sharp at every scale.
#pragma once

#include <QIcon>

namespace quorvane {

// A small wall of coloured fields.
QIcon ProgramIcon();

} // namespace quorvane
