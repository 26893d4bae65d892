#include "files/showfiles.h"
#include "reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    LoadAndSave(SequenceKind, "fuzz.QSQ", LoadSequence, SaveSequence, data, size);
    return 0;
}
