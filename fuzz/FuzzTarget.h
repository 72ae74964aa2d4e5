#pragma once

#include <cstddef>
#include <cstdint>

// Every target defines this one function, by the name the fuzzer's engine calls. It takes any bytes, answers 0, and
// tells what must not be as a GoogleTest failure, so that it can share the tests' own helpers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
