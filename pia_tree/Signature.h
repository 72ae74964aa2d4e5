#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>
#include <string_view>

namespace pia
{
// A cheap hash of name and kind. Different hashes mean different items, so a lookup rarely compares any name but the
// one it is looking for. A name in bytes and the same ASCII name in UTF-16 have the same hash.
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
