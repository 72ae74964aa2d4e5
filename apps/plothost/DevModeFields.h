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
    // Empty if the public part ends before or inside the field.
    std::variant<std::monostate, std::int64_t, OdString> value;
    std::string symbol;          // "DMORIENT_PORTRAIT"; "" if the value has no name
    std::optional<bool> flagged; // empty for a field without a flag in dmFields
};

// A decoded DEVMODEW. It does not refer to the bytes it came from.
struct DecodedDevMode
{
    // Why the bytes are not a DEVMODEW, or "". If set, everything but byteCount is empty.
    std::string problem;

    std::size_t byteCount = 0;
    std::size_t size = 0;        // of the public part
    std::size_t driverExtra = 0; // of the private part
    std::size_t bytesBehind = 0; // bytes after both
    DWORD flags = 0;             // dmFields, unchanged
    std::vector<std::string> flagNames;
    DWORD unnamedFlags = 0;
    std::vector<DevModeField> fields; // in the order of the structure, without sizes and flags
    std::vector<BYTE> privateBytes;
};

// Takes any bytes, even if they are too short, misaligned or have wrong sizes.
DecodedDevMode decodeDevMode(std::span<const BYTE> bytes);
} // namespace plothost
