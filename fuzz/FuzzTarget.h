#pragma once

#include <cstddef>
#include <cstdint>

// Every target defines this one function, whose name the fuzzer's engine calls. It takes any bytes and returns 0. A
// broken promise is a GoogleTest failure, so that targets can share the tests' helpers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
