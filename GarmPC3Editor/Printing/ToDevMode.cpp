// Builds the DEVMODEW of a configuration's printer. The driver's default is not used: the stored private bytes are
// restored as they are, and the public fields are rebuilt from the nodes.

#include "GarmPC3Editor/Model/Numbers.h"
#include "GarmPC3Editor/Printing/Conversions.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "GarmPC3Editor/Printing/PaperNames.h"
#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "spooler/DevModeView.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace
{
// A 16-bit field takes the lower 16 bits of the file's 32.
constexpr short toField(std::int32_t value)
{
    return static_cast<short>(value);
}

// Copies text up to its first NUL, at most as much as fits; no terminator is added.
template <std::size_t capacity>
void copyText(WCHAR (&field)[capacity], OdStringView text)
{
    text = text.substr(0, text.find(OdChar()));
    std::copy_n(text.begin(), std::min(text.size(), capacity), field);
}

// Public fields and flags that configurations store as numbers in the custom data.
void putCustomNumbers(const GmCustomNode& custom, DEVMODEW& dm)
{
    std::int32_t number = 0;
    // Every import stores it. A file without it gives 0, for want of anything better.
    if (custom.getNumber(storedDevMode::specVersion, number))
        dm.dmSpecVersion = static_cast<WORD>(number);
    if (custom.getNumber(storedDevMode::mediaType, number))
    {
        dm.dmMediaType = static_cast<DWORD>(number);
        dm.dmFields |= DM_MEDIATYPE;
    }
    if (custom.getNumber(storedDevMode::defaultSource, number))
    {
        dm.dmDefaultSource = toField(number);
        dm.dmFields |= DM_DEFAULTSOURCE;
    }
    if (custom.getNumber(storedDevMode::ttOption, number))
    {
        dm.dmTTOption = toField(number);
        dm.dmFields |= DM_TTOPTION;
    }
    if (custom.getNumber(storedDevMode::paperSize, number))
    {
        dm.dmPaperSize = toField(number);
        dm.dmFields |= DM_PAPERSIZE;
    }
}

void putDevice(const GmMetaNode& meta, DEVMODEW& dm)
{
    copyText(dm.dmDeviceName, meta.m_win_device_name);
    // Quirk 19.
    dm.dmDeviceName[30] = 0;
    dm.dmDriverVersion = static_cast<WORD>(meta.m_dm_driver_version);
}

void putMedia(const GmMediaNode& media, DEVMODEW& dm)
{
    dm.dmOrientation = toField(media.m_dm_orientation);
    dm.dmFields |= DM_ORIENTATION;
    dm.dmCopies = toField(media.m_number_of_copies);
    dm.dmFields |= DM_COPIES;
    // Quirk 20.
    dm.dmScale = toField(media.m_size.m_dm_scale);
    if (media.m_size.m_dm_scale != 100)
        dm.dmFields |= DM_SCALE;

    if (media.m_destination)
    {
        // Quirk 10.
        dm.dmCollate = media.m_destination->m_collating_type != 0 ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
        dm.dmFields |= DM_COLLATE;
    }
}

void putColor(const GmResColorMemNode& color, DEVMODEW& dm)
{
    dm.dmColor = toField(color.m_dm_color);
    dm.dmFields |= DM_COLOR;
    if (color.m_icm_method != 0)
    {
        dm.dmICMMethod = static_cast<DWORD>(color.m_icm_method);
        dm.dmFields |= DM_ICMMETHOD;
    }
    if (color.m_icm_intent != 0)
    {
        dm.dmICMIntent = static_cast<DWORD>(color.m_icm_intent);
        dm.dmFields |= DM_ICMINTENT;
    }
    color.m_resolution.get(dm);
}

// Quirk 21.
void putDitherAndDuplex(const GmPlotCfg3& cfg, DEVMODEW& dm)
{
    dm.dmDitherType = cfg.m_ditherType;
    if ((cfg.m_devModeFields & DM_DITHERTYPE) || cfg.m_ditherType != 1)
        dm.dmFields |= DM_DITHERTYPE;
    dm.dmDuplex = static_cast<short>(cfg.m_duplex);
    if ((cfg.m_devModeFields & DM_DUPLEX) || cfg.m_duplex != 1)
        dm.dmFields |= DM_DUPLEX;
}

// The paper by name and by code: quirk 22, quirk 23 and quirk 24.
void putPaper(const GmPlotCfg3& cfg, GmPrinterInfo& printer, DEVMODEW& dm)
{
    const GmSizeNode& size = cfg.m_media.m_size;
    const bool neverTakenOver = cfg.m_devModeFields == 0;
    const bool wantsName = neverTakenOver || (cfg.m_devModeFields & DM_FORMNAME);
    const bool wantsCode = neverTakenOver || (cfg.m_devModeFields & DM_PAPERSIZE);

    std::int32_t code = 0;
    if (const int index = printer.paperIndexByName(size.m_name); index >= 0)
    {
        if (wantsName)
        {
            copyText(dm.dmFormName, printer.paperName(index));
            dm.dmFormName[31] = 0;
            dm.dmFields |= DM_FORMNAME;
        }
        if (wantsCode)
        {
            dm.dmPaperSize = static_cast<short>(printer.paperId(index));
            dm.dmFields |= DM_PAPERSIZE;
        }
    }
    else if (userPaperCode(size.m_name, code))
    {
        if (wantsCode)
        {
            dm.dmPaperSize = toField(code);
            dm.dmFields |= DM_PAPERSIZE;
        }
        if (neverTakenOver)
        {
            // Tenths of a millimetre.
            const GmMediaBoundsNode& bounds = size.m_media_description.m_media_bounds;
            dm.dmPaperWidth = wrapToInt16(bounds.m_urx * 10);
            dm.dmPaperLength = wrapToInt16(bounds.m_ury * 10);
            dm.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
        }
    }
}

// The block as bytes: as many public fields as the stored size has room for, followed by zeros when it has more, then
// the private bytes, which begin at the stored size whatever is there.
OdArray<unsigned char> assemble(DEVMODEW dm, const storedDevMode::Sizes& sizes, OdStringView privateText)
{
    dm.dmFields = devModeFlagsWithin(dm.dmFields, sizes.size);

    OdArray<unsigned char> block;
    block.resize(static_cast<unsigned>(sizes.size + sizes.driverExtra));
    std::memcpy(block.asArrayPtr(), &dm, std::min(sizes.size, sizeof dm));
    bytesFromHex(privateText, std::span(block.begin(), block.end()).subspan(sizes.size));
    return block;
}

} // namespace

OdArray<unsigned char> makeDevMode(const GmPlotCfg3& cfg, Fault& fault)
{
    const bool hasCustomData = static_cast<bool>(cfg.m_custom);
    if (!hasCustomData || cfg.m_meta.m_win_device_name.isEmpty())
    {
        fault = Fault{.stage = FaultStage::makeDevMode,
                      .code = hasCustomData ? FaultCode::noPrinterName : FaultCode::noCustomData};
        return {};
    }
    const GmCustomNode& custom = *cfg.m_custom;
    storedDevMode::Sizes sizes;
    OdString privateText;
    if (!storedDevMode::readSizes(custom, sizes, fault))
        return {};
    if (sizes.driverExtra != 0 && !storedDevMode::readPrivateText(custom, sizes.driverExtra, privateText, fault))
        return {};
    GmPrinterInfo printer(cfg.m_meta.m_win_device_name);
    if (!printer.isOpen())
    {
        fault = printer.openFault(FaultStage::makeDevMode);
        return {};
    }

    // Built in our own structure, since the stored size may be smaller than what is written here.
    DEVMODEW dm = {};
    dm.dmSize = static_cast<WORD>(sizes.size);
    dm.dmDriverExtra = static_cast<WORD>(sizes.driverExtra);
    putCustomNumbers(custom, dm);
    putDevice(cfg.m_meta, dm);
    putMedia(cfg.m_media, dm);
    putColor(cfg.m_res_color_mem, dm);
    putDitherAndDuplex(cfg, dm);
    putPaper(cfg, printer, dm);
    return assemble(dm, sizes, privateText);
}
