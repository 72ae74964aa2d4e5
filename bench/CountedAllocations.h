#pragma once

#include <cstddef>

// How often this program has allocated memory with operator new, including the codec's allocations.
std::size_t countedAllocations() noexcept;
