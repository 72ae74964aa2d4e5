#pragma once

#include <cstddef>

// What a PC3 file may be at most. Reading refuses what is beyond, as it does other damage, and writing refuses it too,
// so that no file is written that cannot be read. Far above any configuration in the field; there to keep a hostile
// file from using up memory or stack.
namespace pia
{
constexpr std::size_t maxTextBytes = std::size_t{64} << 20; // decompressed
constexpr std::size_t maxLineBytes = std::size_t{32} << 20; // without the line end, with the indentation
constexpr unsigned maxNesting = 128;                        // blocks open at once; the root is not one of them
constexpr std::size_t maxItems = 1'000'000;                 // blocks included, the root not
constexpr std::size_t maxFirstLine = 64;                    // of the container, without the line end
} // namespace pia
