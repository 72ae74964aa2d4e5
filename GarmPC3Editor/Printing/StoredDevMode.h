#pragma once

#include "GarmPC3Editor/GmCustomNode.h"
#include "GarmPC3Editor/Model/Fault.h"
#include "GarmPC3Editor/Model/StoredKeys.h"

#include <cstddef>

// What the custom data of a configuration stores about its printer's DEVMODEW.
namespace storedDevMode
{
// Lengths of a block's two parts, in bytes.
struct Sizes
{
    std::size_t size = 0;
    std::size_t driverExtra = 0;
};

// False unless both sizes are stored and can be those of a block: a public part of at least smallestDevMode bytes, and
// neither part longer than its 16-bit field allows. The file may have been edited by hand.
bool readSizes(const GmCustomNode& custom, Sizes& out, Fault& fault);

// The driver's own bytes as hexadecimal text. False unless there are exactly two characters per byte.
bool readPrivateText(const GmCustomNode& custom, std::size_t byteCount, OdString& out, Fault& fault);
} // namespace storedDevMode
