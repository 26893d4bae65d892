// The pictures on the sequencer's buttons.
#pragma once

#include <QIcon>

namespace quorvane {

enum class Transport { Previous, Record, Play, Stop, Next, Delete, Start };

QIcon TransportIcon(Transport picture);

} // namespace quorvane
