// libFuzzer's entry points for one target, named by ZO_FUZZ_TARGET when the
// fuzzer is built.
#include "fuzz/ZoFuzz.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    ZoFuzzEnsureApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) { return ZO_FUZZ_TARGET(data, size); }
