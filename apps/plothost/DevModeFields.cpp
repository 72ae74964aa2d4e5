#include "plothost/DevModeFields.h"

#include "kernel/OdText.h"
#include "plothost/DevModeSymbols.h"
#include "spooler/DevModeView.h"

#include <cstring>

namespace plothost
{
namespace
{
enum class Kind
{
    text,  // a slot of 32 characters
    int16, // short
    word,  // unsigned 16 bits
    dword, // unsigned 32 bits
};

struct Row
{
    const char* name;
    std::size_t offset;
    Kind kind;
    DWORD flag; // 0: the field has none
    const std::span<const Symbol>* symbols;
};

constexpr std::size_t slotLength = CCHDEVICENAME;
static_assert(CCHDEVICENAME == CCHFORMNAME);

#define FIELD(field) #field, offsetof(DEVMODEW, field)
const Row rows[] = {
    {FIELD(dmDeviceName), Kind::text, 0, nullptr},
    {FIELD(dmSpecVersion), Kind::word, 0, &symbols::specVersion},
    {FIELD(dmDriverVersion), Kind::word, 0, nullptr},
    {FIELD(dmOrientation), Kind::int16, DM_ORIENTATION, &symbols::orientation},
    {FIELD(dmPaperSize), Kind::int16, DM_PAPERSIZE, &symbols::paper},
    {FIELD(dmPaperLength), Kind::int16, DM_PAPERLENGTH, nullptr},
    {FIELD(dmPaperWidth), Kind::int16, DM_PAPERWIDTH, nullptr},
    {FIELD(dmScale), Kind::int16, DM_SCALE, nullptr},
    {FIELD(dmCopies), Kind::int16, DM_COPIES, nullptr},
    {FIELD(dmDefaultSource), Kind::int16, DM_DEFAULTSOURCE, &symbols::source},
    {FIELD(dmPrintQuality), Kind::int16, DM_PRINTQUALITY, &symbols::quality},
    {FIELD(dmColor), Kind::int16, DM_COLOR, &symbols::color},
    {FIELD(dmDuplex), Kind::int16, DM_DUPLEX, &symbols::duplex},
    {FIELD(dmYResolution), Kind::int16, DM_YRESOLUTION, nullptr},
    {FIELD(dmTTOption), Kind::int16, DM_TTOPTION, &symbols::trueType},
    {FIELD(dmCollate), Kind::int16, DM_COLLATE, &symbols::collate},
    {FIELD(dmFormName), Kind::text, DM_FORMNAME, nullptr},
    {FIELD(dmLogPixels), Kind::word, DM_LOGPIXELS, nullptr},
    {FIELD(dmBitsPerPel), Kind::dword, DM_BITSPERPEL, nullptr},
    {FIELD(dmPelsWidth), Kind::dword, DM_PELSWIDTH, nullptr},
    {FIELD(dmPelsHeight), Kind::dword, DM_PELSHEIGHT, nullptr},
    {FIELD(dmNup), Kind::dword, DM_NUP, &symbols::nup},
    {FIELD(dmDisplayFrequency), Kind::dword, DM_DISPLAYFREQUENCY, nullptr},
    {FIELD(dmICMMethod), Kind::dword, DM_ICMMETHOD, &symbols::icmMethod},
    {FIELD(dmICMIntent), Kind::dword, DM_ICMINTENT, &symbols::icmIntent},
    {FIELD(dmMediaType), Kind::dword, DM_MEDIATYPE, &symbols::mediaType},
    {FIELD(dmDitherType), Kind::dword, DM_DITHERTYPE, &symbols::ditherType},
    {FIELD(dmReserved1), Kind::dword, 0, nullptr},
    {FIELD(dmReserved2), Kind::dword, 0, nullptr},
    {FIELD(dmPanningWidth), Kind::dword, DM_PANNINGWIDTH, nullptr},
    {FIELD(dmPanningHeight), Kind::dword, DM_PANNINGHEIGHT, nullptr},
};
#undef FIELD

std::size_t sizeOf(Kind kind)
{
    switch (kind)
    {
    case Kind::text:
        return slotLength * sizeof(WCHAR);
    case Kind::dword:
        return sizeof(DWORD);
    case Kind::int16:
    case Kind::word:
        break;
    }
    return sizeof(WORD);
}

template <class T>
T load(const BYTE* at)
{
    T value;
    std::memcpy(&value, at, sizeof(value));
    return value;
}

std::variant<std::monostate, std::int64_t, OdString> load(Kind kind, const BYTE* at)
{
    switch (kind)
    {
    case Kind::text:
    {
        OdChar slot[slotLength];
        std::memcpy(slot, at, sizeof(slot));
        return OdString(odBoundedView(slot, slotLength));
    }
    case Kind::int16:
        return std::int64_t(load<std::int16_t>(at));
    case Kind::word:
        return std::int64_t(load<std::uint16_t>(at));
    case Kind::dword:
        break;
    }
    return std::int64_t(load<std::uint32_t>(at));
}

DevModeField decode(const Row& row, const DevModeView& view)
{
    DevModeField field;
    field.name = row.name;
    const bool present = row.offset + sizeOf(row.kind) <= view.size();
    // The flag of a missing field means nothing.
    if (row.flag != 0)
        field.flagged = present && (view.rawFlags() & row.flag) != 0;
    if (!present)
        return field;
    field.value = load(row.kind, reinterpret_cast<const BYTE*>(&view.fields()) + row.offset);
    if (const auto* number = std::get_if<std::int64_t>(&field.value); number && row.symbols)
        field.symbol = symbolOf(*row.symbols, *number);
    return field;
}

std::string bytesText(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string whyNone(std::span<const BYTE> bytes)
{
    if (bytes.empty())
        return "no bytes";
    if (bytes.size() < smallestDevMode)
        return bytesText(bytes.size()) + " are too few for a DEVMODEW";
    const std::size_t size = load<std::uint16_t>(bytes.data() + offsetof(DEVMODEW, dmSize));
    const std::size_t extra = load<std::uint16_t>(bytes.data() + offsetof(DEVMODEW, dmDriverExtra));
    if (size < smallestDevMode)
        return "dmSize " + std::to_string(size) + " is too small for a DEVMODEW";
    return "dmSize " + std::to_string(size) + " and dmDriverExtra " + std::to_string(extra) + " claim more than the " +
           bytesText(bytes.size()) + " there are";
}
} // namespace

DecodedDevMode decodeDevMode(std::span<const BYTE> bytes)
{
    DecodedDevMode result;
    result.byteCount = bytes.size();
    const DevModeView view(bytes);
    if (!view)
    {
        result.problem = whyNone(bytes);
        return result;
    }
    result.size = view.size();
    result.driverExtra = view.driverExtra();
    result.bytesBehind = bytes.size() - view.bytes().size();
    result.flags = view.rawFlags();
    result.unnamedFlags = result.flags;
    for (const Symbol& flag : symbols::flags)
        if (const auto bit = static_cast<DWORD>(flag.value); (result.flags & bit) != 0)
        {
            result.flagNames.emplace_back(flag.name);
            result.unnamedFlags &= ~bit;
        }
    for (const Row& row : rows)
        result.fields.push_back(decode(row, view));
    result.privateBytes.assign(view.privateBytes().begin(), view.privateBytes().end());
    return result;
}
} // namespace plothost
