#include "support/FuzzEngine.h"

/// Any bytes as a datagram, for libFuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static lumeroom::test::FuzzEngine engine;
    engine.take({data, size}, 1);
    return 0;
}
