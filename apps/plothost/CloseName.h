#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plothost
{
// The number of single-character insertions, deletions, replacements and swaps of neighbours that turn a into b,
// ignoring ASCII case.
std::size_t editDistance(std::string_view a, std::string_view b);

// The candidate that was most likely meant, or "" if none is close: at most a third of the name may differ, and a
// candidate that starts with the name always counts.
std::string closestName(std::string_view name, const std::vector<std::string>& candidates);
} // namespace plothost
