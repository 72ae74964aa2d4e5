#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>
#include <string_view>

namespace pia
{
// A cheap digest of name and kind: different digests mean different items, so that a look-up compares the names of
// hardly any but the one it looks for. Bytes and UTF-16 of the same ASCII name give the same.
template <class Unit>
constexpr std::uint32_t signature(std::basic_string_view<Unit> name, CPItem::EType kind) noexcept
{
    const auto unit = [name](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(name[i])); };
    const std::uint32_t start = static_cast<std::uint32_t>(kind) | static_cast<std::uint32_t>(name.size() & 0x1F) << 3;
    if (name.empty())
        return start;
    return start | unit(0) << 8 | unit(name.size() / 2) << 16 | unit(name.size() - 1) << 24;
}
} // namespace pia
