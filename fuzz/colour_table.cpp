#include "files/showfiles.h"
#include "reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    LoadAndSave(ColourTableKind, "fuzz.QCT", LoadColourTable, SaveColourTable, data, size);
    return 0;
}
