// Adds its arguments up and marks the buffer with the command.
#include "driverlibrary.h"

#ifdef LACKS_ENTRY
ENTRY std::int32_t DasHardCommand() { return 0; }
#else
// The underscore is how the library spells it.
ENTRY std::int32_t _DasHardCommand(std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
    if (buffer != nullptr) buffer[0] = static_cast<std::uint8_t>(command);
    return 1000 * command + parameter;
}
#endif
