// Moves the handle on by one or two and gives the first or last value of the frame.
#include "driverlibrary.h"

ENTRY std::int32_t DMXSEND(std::int32_t* handle, std::int32_t* frame) {
    *handle += 1;
    return frame[0];
}

#ifndef LACKS_ENTRY
ENTRY std::int32_t DMXSEND2(std::int32_t* handle, std::int32_t* frame) {
    *handle += 2;
    return frame[511];
}
#endif
