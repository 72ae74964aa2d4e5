#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace plothost
{
// One named value of a DEVMODEW field, or one flag of dmFields.
struct Symbol
{
    std::int64_t value;
    const char* name;
};

// Named values as the public headers define them. Where a device may define values of its own, they start at the last
// entry, whose name ends in _USER.
namespace symbols
{
extern const std::span<const Symbol> flags; // dmFields, one bit each, lowest first
extern const std::span<const Symbol> specVersion;
extern const std::span<const Symbol> orientation;
extern const std::span<const Symbol> paper;
extern const std::span<const Symbol> source;
extern const std::span<const Symbol> quality;
extern const std::span<const Symbol> color;
extern const std::span<const Symbol> duplex;
extern const std::span<const Symbol> trueType;
extern const std::span<const Symbol> collate;
extern const std::span<const Symbol> nup;
extern const std::span<const Symbol> icmMethod;
extern const std::span<const Symbol> icmIntent;
extern const std::span<const Symbol> mediaType;
extern const std::span<const Symbol> ditherType;
} // namespace symbols

// The name of a value: "DMPAPER_A4"; "DMPAPER_USER+44" for a device's own value; "" when it has none.
std::string symbolOf(std::span<const Symbol> table, std::int64_t value);
} // namespace plothost
