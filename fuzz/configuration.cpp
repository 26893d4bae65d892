#include "files/showfiles.h"
#include "reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    LoadAndSave(ConfigurationKind, "fuzz.CFG", LoadConfiguration, SaveConfiguration, data, size);
    return 0;
}
