#pragma once

#include "kernel/OdArray.h"

#include <cstdint>

using OdInt16 = std::int16_t;
using OdInt32 = std::int32_t;
using OdUInt8 = unsigned char;

// Bytes as a value type: the contents of a binary chunk.
using OdBinaryData = OdArray<OdUInt8>;
