#pragma once

#include <cstddef>

// The limits of a PC3 file. Reading refuses a file beyond them as it does other damage, and writing refuses it too, so
// that no file is written that cannot be read. They are far above any configuration in the field and keep a hostile
// file from using up memory or stack.
namespace pia
{
constexpr std::size_t maxTextBytes = std::size_t{64} << 20; // decompressed
constexpr std::size_t maxLineBytes = std::size_t{32} << 20; // without the line end, with the indentation
constexpr unsigned maxNesting = 128;                        // nested blocks, not counting the root
constexpr std::size_t maxItems = 1'000'000;                 // including blocks, not counting the root
constexpr std::size_t maxFirstLine = 64;                    // of the container, without the line end
} // namespace pia
