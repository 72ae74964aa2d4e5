// A configuration takes over what a driver or a user changed in a DEVMODEW.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Model/HexText.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "GarmPC3Editor/Printing/TakeOverPaper.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"

#include <span>
#include <utility>

namespace
{
// One takeover. Its pieces run in the order of run(); what the earlier ones changed stays when a later one fails.
class Takeover
{
public:
    // modified is set by whatever changes, and never cleared here.
    Takeover(GmPlotCfg3& cfg, const DevModeView& dm, bool insert, bool& modified)
        : m_cfg(cfg), m_dm(dm), m_fields(dm.fields()), m_insert(insert), m_modified(modified)
    {
    }

    bool run(const OdString& printerName);

private:
    bool fitsConfiguration(const OdString& printerName) const;
    void takeOverSizes();
    void takeOverPrivateBytes();
    void nameAsSystemPrinter(const GmPrinterInfo& printer);
    bool takeOverCustomNumbers();
    bool takeOverNumber(OdStringView key, std::uint32_t value);
    void takeOverMedia();
    void takeOverColor();
    void takeOverColorDepth(HDC dc);
    void takeOverDriverName(const GmPrinterInfo& printer);
    void takeOverDitherAndDuplex();

    void noteChange(bool changed)
    {
        if (changed)
            m_modified = true;
    }

    template <class Field, class Value>
    bool set(Field& field, Value value)
    {
        const bool changed = field != static_cast<Field>(value);
        field = static_cast<Field>(value);
        noteChange(changed);
        return changed;
    }

    GmPlotCfg3& m_cfg;
    const DevModeView& m_dm;
    const DEVMODEW& m_fields;
    const bool m_insert;
    bool& m_modified;
};

bool Takeover::run(const OdString& printerName)
{
    if (!fitsConfiguration(printerName))
        return false;
    takeOverSizes();
    takeOverPrivateBytes();

    // The driver answers for the mode that is taken over. It gets a copy of it: the caller's may be misaligned, and a
    // driver may read on behind its end.
    const DevModeBlock block = DevModeBlock::copyOf(m_dm);
    GmPrinterInfo printer(m_cfg.m_meta.m_win_device_name, block.get());
    if (!printer.isOpen())
        return false;
    if (m_insert)
        nameAsSystemPrinter(printer);

    // The stored driver name is given as it is; it is still "" while a configuration is being created.
    DeviceContext dc = createDeviceContext(m_cfg.m_meta.m_win_driver_name.c_str(),
                                           m_cfg.m_meta.m_win_device_name.c_str(), block.get());
    if (!takeOverPaper(m_cfg.m_media, m_dm, printer, dc.get(), m_modified))
        return false;
    if (!takeOverCustomNumbers())
        return false;
    takeOverMedia();
    takeOverColor();
    noteChange(m_cfg.m_res_color_mem.m_resolution.set(m_fields, dc.get()));
    takeOverColorDepth(dc.get());
    dc.reset();
    // A device that does not dither, or cannot say, shows every colour it has undithered. This follows from what was
    // taken over and is no change of its own.
    if (!m_dm.has(DM_DITHERTYPE) || m_fields.dmDitherType == 1)
        m_cfg.m_res_color_mem.m_num_undithered_colors = m_cfg.m_res_color_mem.m_num_colors;
    takeOverDriverName(printer);
    takeOverDitherAndDuplex();
    return true;
}

// A configuration can take over only blocks of its own printer and driver, which the two sizes stand for.
bool Takeover::fitsConfiguration(const OdString& printerName) const
{
    const OdArray<unsigned char> bytes = m_cfg.toDevMode();
    const DevModeView current(std::span(bytes.begin(), bytes.end()));
    return current && m_dm && current.size() == m_dm.size() && current.driverExtra() == m_dm.driverExtra() &&
           odEqualNoCase(printerName, m_cfg.m_meta.m_win_device_name);
}

// The sizes and the private bytes are stored already: without them the configuration would have made no block that
// fits.
void Takeover::takeOverSizes()
{
    GmCustomNode& custom = *m_cfg.m_custom;
    custom.setNumber(m_fields.dmDriverExtra, storedDevMode::driverExtra, false);
    custom.setNumber(m_fields.dmSize, storedDevMode::size, false);
}

void Takeover::takeOverPrivateBytes()
{
    if (m_dm.driverExtra() == 0)
        return;
    GmCustomNode& custom = *m_cfg.m_custom;
    OdString before;
    custom.getRawData(before);
    const OdString now = hexFromBytes(m_dm.privateBytes());
    custom.setRawData(now, false);
    noteChange(now != before);
}

void Takeover::nameAsSystemPrinter(const GmPrinterInfo& printer)
{
    OdString ports;
    if (printer.getPorts(ports))
        m_cfg.m_io.m_plot_to_file = odEqualNoCase(ports, OD_T("FILE")) || odEqualNoCase(ports, OD_T("FILE:"));

    // Whatever the printer, its driver is the system's.
    GmMetaNode& meta = m_cfg.m_meta;
    for (OdString* const name : {&meta.m_canonical_family_name, &meta.m_canonical_model_name,
                                 &meta.m_localized_family_name, &meta.m_localized_model_name})
        *name = OD_T("System");
}

bool Takeover::takeOverCustomNumbers()
{
    // The version has no flag of its own; a block that sets no field at all says nothing about it.
    if (m_dm.rawFlags() != 0 && !takeOverNumber(storedDevMode::specVersion, m_fields.dmSpecVersion))
        return false;
    if (m_dm.has(DM_MEDIATYPE) && !takeOverNumber(storedDevMode::mediaType, m_fields.dmMediaType))
        return false;
    // Codes below 0 keep their sign over the wider number: -1 is stored as 4294967295.
    if (m_dm.has(DM_DEFAULTSOURCE) &&
        !takeOverNumber(storedDevMode::defaultSource, static_cast<std::uint32_t>(m_fields.dmDefaultSource)))
        return false;
    return !m_dm.has(DM_TTOPTION) ||
           takeOverNumber(storedDevMode::ttOption, static_cast<std::uint32_t>(m_fields.dmTTOption));
}

// False when the number is to replace a stored one and there is none.
bool Takeover::takeOverNumber(OdStringView key, std::uint32_t value)
{
    GmCustomNode& custom = *m_cfg.m_custom;
    if (!m_insert && !m_modified)
    {
        std::int32_t stored = 0;
        noteChange(!custom.getNumber(key, stored) || static_cast<std::uint32_t>(stored) != value);
    }
    return custom.setNumber(value, key, m_insert);
}

// These fields need no flag: quirk 26.
void Takeover::takeOverMedia()
{
    GmMediaNode& media = m_cfg.m_media;
    set(m_cfg.m_meta.m_dm_driver_version, m_fields.dmDriverVersion);
    if (set(media.m_dm_orientation, m_fields.dmOrientation))
        media.swapBounds();
    set(media.m_number_of_copies, m_fields.dmCopies);
    set(media.m_size.m_dm_scale, m_fields.dmScale);

    if (!media.m_destination)
    {
        OdSharedPtr<GmDestinationNode> destination(new GmDestinationNode);
        destination->m_name = OD_T("Default");
        media.m_destination = destination;
        noteChange(true);
    }
    noteChange(media.m_destination->setCollating(m_fields.dmCollate != 0));
}

void Takeover::takeOverColor()
{
    GmResColorMemNode& color = m_cfg.m_res_color_mem;
    set(color.m_dm_color, m_fields.dmColor);
    // Colour makes the choice of merging lines meaningful, so it gets its default; one that was made is kept. A default
    // is no change.
    if (m_fields.dmColor == DMCOLOR_COLOR && !color.m_lines_overwrite)
        color.m_lines_overwrite = GmOptionalFlag(new bool(true));
    set(color.m_icm_method, m_fields.dmICMMethod);
    set(color.m_icm_intent, m_fields.dmICMIntent);
}

void Takeover::takeOverColorDepth(HDC dc)
{
    if (!dc)
        return;
    GmResColorMemNode& color = m_cfg.m_res_color_mem;
    const int bits = ::GetDeviceCaps(dc, BITSPIXEL);
    if (bits >= 1 && set(color.m_color_depth, bits))
        // Quirk 31.
        color.m_num_colors = static_cast<std::int32_t>(1U << (static_cast<unsigned>(bits) % 32U));
}

void Takeover::takeOverDriverName(const GmPrinterInfo& printer)
{
    OdString driverName;
    if (!printer.driverName(driverName) || driverName == m_cfg.m_meta.m_win_driver_name)
        return;
    m_cfg.m_meta.m_win_driver_name = driverName;
    noteChange(true);
}

void Takeover::takeOverDitherAndDuplex()
{
    set(m_cfg.m_ditherType, m_fields.dmDitherType);
    set(m_cfg.m_duplex, m_fields.dmDuplex);
    // What the block flagged, missing fields included. It decides later which fields are given back; it is no setting.
    m_cfg.m_devModeFields = m_dm.rawFlags();
}
} // namespace

bool GmPlotCfg3::updateFromDevMode(const DevModeView& dm, const OdString& printerName, bool& modified)
{
    return fromDevMode(dm, printerName, false, modified);
}

bool GmPlotCfg3::updateFromDevMode(const DEVMODEW& dm, const OdString& printerName, bool& modified)
{
    return fromDevMode(dm, printerName, false, modified);
}

bool GmPlotCfg3::fromDevMode(const DEVMODEW& dm, const OdString& printerName, bool insert, bool& modified)
{
    return fromDevMode(DevModeView(claimedBytes(dm)), printerName, insert, modified);
}

bool GmPlotCfg3::fromDevMode(const DevModeView& dm, const OdString& printerName, bool insert, bool& modified)
{
    modified = false;
    return answerOnThrow(false, [&] { return Takeover(*this, dm, insert, modified).run(printerName); });
}
