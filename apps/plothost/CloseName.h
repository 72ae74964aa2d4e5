#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plothost
{
// How many single-character insertions, deletions, replacements and swaps of neighbours make b of a, ASCII case
// ignored.
std::size_t editDistance(std::string_view a, std::string_view b);

// The candidate that was most likely meant, or "" when none is near: at most a third of the name may differ, and a
// candidate that the name is the beginning of always counts.
std::string closestName(std::string_view name, const std::vector<std::string>& candidates);
} // namespace plothost
