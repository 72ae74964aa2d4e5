// Any bytes as a PC3 file: they are refused, or what is written from them reads back equal.

#include "fuzz/FileInput.h"
#include "fuzz/FuzzTarget.h"
#include "tests/unit/pia/RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    expectReadOrRefused(fileFrom(data, size));
    return 0;
}
