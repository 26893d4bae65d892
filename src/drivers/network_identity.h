// Who this sender is in the network: the component identifier (CID) of streaming ACN. Made once for a
// user and kept in a file of the user's own, so that receivers know the sender again after a restart.
#pragma once

#include "drivers/sacn_packet.h"

#include <QString>

namespace quorvane {

// The identifier in the file; a new one, written there, when the file holds none. Where nothing can be
// written it is derived from the machine and the user: still the same at every start.
Cid StableCid(const QString& file);

} // namespace quorvane
