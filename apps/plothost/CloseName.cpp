#include "plothost/CloseName.h"

#include <algorithm>

namespace plothost
{
namespace
{
// A name this long is not a typing error; the table below is quadratic.
constexpr std::size_t longestCompared = 256;

std::string folded(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}
} // namespace

std::size_t editDistance(std::string_view first, std::string_view second)
{
    const std::string a = folded(first);
    const std::string b = folded(second);
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        last[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i)
    {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j)
        {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast = last;
        last = row;
    }
    return last[b.size()];
}

std::string closestName(std::string_view name, const std::vector<std::string>& candidates)
{
    if (name.empty() || name.size() > longestCompared)
        return {};
    std::string best;
    std::size_t bestDistance = 0;
    const std::string wanted = folded(name);
    for (const std::string& candidate : candidates)
    {
        if (candidate.size() > longestCompared)
            continue;
        const bool beginning = folded(candidate).starts_with(wanted);
        const std::size_t distance = beginning ? 0 : editDistance(name, candidate);
        const std::size_t allowed = std::max(name.size(), candidate.size()) / 3;
        if (distance <= allowed && (best.empty() || distance < bestDistance))
        {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}
} // namespace plothost
