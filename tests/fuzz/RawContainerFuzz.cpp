// For libFuzzer: build with Clang and -DORNIVO_FUZZ=ON, and give it the folder of seeds that
// `write_raw_seeds` fills.

#include <cstddef>
#include <cstdint>

#include "fuzz/RawContainerEntry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ornivo::testing::feedRawContainer({data, size});
    return 0;
}
