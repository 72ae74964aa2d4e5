#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

// Names of the temporary files that a write creates: "~gm", 16 random hexadecimal digits, ".tmp". They are short, so
// they fit wherever the target's name does, and never mistaken for a configuration, which ends in ".pc3". Writers in
// other containers and Wine prefixes, and on other machines, use the same folder, so the name says nothing about its
// owner.
namespace files
{
constexpr std::string_view tempNameStart = "~gm";
constexpr std::string_view tempNameEnd = ".tmp";
constexpr std::size_t tempNameDigits = 16;

// The age from which a temporary file may have been left behind by a killed process. Measured by the clock of the file
// system, which need not be ours.
constexpr std::uint64_t staleSeconds = 3600;

// A different name with each call.
inline std::string newTempName()
{
    std::random_device random;
    const std::uint64_t number = (std::uint64_t{random()} << 32) | random();
    std::array<char, tempNameDigits> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    return std::string(tempNameStart)
        .append(tempNameDigits - count, '0')
        .append(digits.data(), count)
        .append(tempNameEnd);
}

inline bool isTempName(std::string_view name) noexcept
{
    if (name.size() != tempNameStart.size() + tempNameDigits + tempNameEnd.size() || !name.starts_with(tempNameStart) ||
        !name.ends_with(tempNameEnd))
        return false;
    const std::string_view digits = name.substr(tempNameStart.size(), tempNameDigits);
    return digits.find_first_not_of("0123456789abcdef") == digits.npos;
}

// While a file is rewritten in place, the new content is kept beside it under this name.
constexpr std::string_view spareNameEnd = ".new";
} // namespace files
