#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace plothost
{
// One field of a DEVMODEW.
struct DevModeField
{
    std::string name; // "dmOrientation"
    // Nothing when the public part ends before or inside the field.
    std::variant<std::monostate, std::int64_t, OdString> value;
    std::string symbol;          // "DMORIENT_PORTRAIT"; "" when the value has no name
    std::optional<bool> flagged; // nothing for a field that has no flag in dmFields
};

// A DEVMODEW taken apart. Nothing of it refers to the bytes it came from.
struct DecodedDevMode
{
    // Why the bytes are not a DEVMODEW; "" when they are. Everything else but byteCount is empty then.
    std::string problem;

    std::size_t byteCount = 0;
    std::size_t size = 0;        // of the public part
    std::size_t driverExtra = 0; // of the private part
    std::size_t bytesBehind = 0; // bytes that belong to neither
    DWORD flags = 0;             // dmFields, unchanged
    std::vector<std::string> flagNames;
    DWORD unnamedFlags = 0;
    std::vector<DevModeField> fields; // in the order of the structure, without sizes and flags
    std::vector<BYTE> privateBytes;
};

// Takes any bytes, also those that are too short, misaligned or lie about their sizes.
DecodedDevMode decodeDevMode(std::span<const BYTE> bytes);
} // namespace plothost
