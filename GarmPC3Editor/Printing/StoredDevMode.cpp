#include "GarmPC3Editor/Printing/StoredDevMode.h"

#include "spooler/DevModeView.h"

#include <limits>

namespace storedDevMode
{
bool readSizes(const GmCustomNode& custom, Sizes& out)
{
    std::int32_t publicPart = 0;
    std::int32_t privatePart = 0;
    if (!custom.getNumber(driverExtra, privatePart) || !custom.getNumber(size, publicPart))
        return false;
    constexpr std::int32_t largest = std::numeric_limits<WORD>::max();
    if (privatePart < 0 || privatePart > largest || publicPart < 0 || publicPart > largest)
        return false;

    const Sizes sizes{static_cast<std::size_t>(publicPart), static_cast<std::size_t>(privatePart)};
    if (sizes.size < smallestDevMode)
        return false;
    out = sizes;
    return true;
}

bool readPrivateText(const GmCustomNode& custom, std::size_t byteCount, OdString& out)
{
    return custom.getRawData(out) && out.view().size() == 2 * byteCount;
}
} // namespace storedDevMode
