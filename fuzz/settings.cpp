#include "files/settingsfile.h"
#include "reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    FreshProgram(size);
    PutFile("QUORVANE.ini", data, size);
    LoadINI();
    RequireSoundShow();
    Require(SaveINI());
    LoadINI();
    RequireSoundShow();
    return 0;
}
