#include "files/showfiles.h"
#include "reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    LoadAndSave(SceneKind, "fuzz.QSC", LoadScene, SaveScene, data, size);
    return 0;
}
