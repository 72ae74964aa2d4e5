#pragma once

#include <cstddef>

// How often this program has asked for memory by operator new, the codec's memory included.
std::size_t countedAllocations() noexcept;
