#include "spooler/DevModeView.h"

#include <algorithm>
#include <cstring>

namespace
{
struct FlaggedField
{
    DWORD flag;
    std::size_t end; // offset of the first byte after the field
};

#define GARM_FIELD_END(member) (offsetof(DEVMODEW, member) + sizeof(DEVMODEW::member))
constexpr FlaggedField flaggedFields[] = {
    {DM_ORIENTATION, GARM_FIELD_END(dmOrientation)},
    {DM_PAPERSIZE, GARM_FIELD_END(dmPaperSize)},
    {DM_PAPERLENGTH, GARM_FIELD_END(dmPaperLength)},
    {DM_PAPERWIDTH, GARM_FIELD_END(dmPaperWidth)},
    {DM_SCALE, GARM_FIELD_END(dmScale)},
    {DM_COPIES, GARM_FIELD_END(dmCopies)},
    {DM_DEFAULTSOURCE, GARM_FIELD_END(dmDefaultSource)},
    {DM_PRINTQUALITY, GARM_FIELD_END(dmPrintQuality)},
    {DM_COLOR, GARM_FIELD_END(dmColor)},
    {DM_DUPLEX, GARM_FIELD_END(dmDuplex)},
    {DM_YRESOLUTION, GARM_FIELD_END(dmYResolution)},
    {DM_TTOPTION, GARM_FIELD_END(dmTTOption)},
    {DM_COLLATE, GARM_FIELD_END(dmCollate)},
    {DM_FORMNAME, GARM_FIELD_END(dmFormName)},
    {DM_ICMMETHOD, GARM_FIELD_END(dmICMMethod)},
    {DM_ICMINTENT, GARM_FIELD_END(dmICMIntent)},
    {DM_MEDIATYPE, GARM_FIELD_END(dmMediaType)},
    {DM_DITHERTYPE, GARM_FIELD_END(dmDitherType)},
};
#undef GARM_FIELD_END

constexpr std::size_t endOfFormName = offsetof(DEVMODEW, dmFormName) + sizeof(DEVMODEW::dmFormName);

// How many of the first size bytes hold whole fields: the 16-bit fields, the form name as one field, the 16 bits after
// it, then 32-bit fields.
constexpr std::size_t wholeFields(std::size_t size) noexcept
{
    if (size < offsetof(DEVMODEW, dmFormName))
        return size / sizeof(WORD) * sizeof(WORD);
    if (size < endOfFormName)
        return offsetof(DEVMODEW, dmFormName);
    if (size < offsetof(DEVMODEW, dmBitsPerPel))
        return endOfFormName;
    return std::min(size / sizeof(DWORD) * sizeof(DWORD), sizeof(DEVMODEW));
}

static_assert(smallestDevMode == 76);
static_assert(wholeFields(77) == 76 && wholeFields(165) == 102 && wholeFields(167) == 166 && wholeFields(171) == 168);

// Spare room after every block, so that a driver which writes or reads too far stays in our memory.
constexpr std::size_t spareBytes = 8192;

// Both sizes of a block are 16-bit.
constexpr std::size_t longestDevMode = 2 * std::size_t{0xFFFF};
} // namespace

DWORD devModeFlagsWithin(DWORD flags, std::size_t size) noexcept
{
    for (const FlaggedField& field : flaggedFields)
        if (field.end > size)
            flags &= ~field.flag;
    return flags;
}

std::span<const BYTE> claimedBytes(const DEVMODEW& devMode) noexcept
{
    const BYTE* const first = reinterpret_cast<const BYTE*>(&devMode);
    WORD size = 0;
    WORD driverExtra = 0;
    std::memcpy(&size, first + offsetof(DEVMODEW, dmSize), sizeof size);
    std::memcpy(&driverExtra, first + offsetof(DEVMODEW, dmDriverExtra), sizeof driverExtra);
    return {first, std::size_t{size} + driverExtra};
}

DevModeView::DevModeView(std::span<const BYTE> bytes) noexcept
{
    if (bytes.size() < smallestDevMode)
        return;
    std::memcpy(&m_fields, bytes.data(), smallestDevMode);
    if (size() < smallestDevMode || size() + driverExtra() > bytes.size())
    {
        m_fields = {};
        return;
    }
    std::memcpy(&m_fields, bytes.data(), wholeFields(size()));
    m_bytes = bytes.first(size() + driverExtra());
}

DevModeBlock DevModeBlock::toFill(std::size_t size)
{
    DevModeBlock block;
    block.m_believed = 2 * std::max(size, sizeof(DEVMODEW)) + spareBytes;
    block.m_bytes.resize(std::max(block.m_believed, longestDevMode));
    return block;
}

DevModeBlock DevModeBlock::copyOf(const DevModeView& view)
{
    if (!view)
        return {};
    DevModeBlock block = toFill(view.bytes().size());
    std::ranges::copy(view.bytes(), block.m_bytes.begin());
    return block;
}
