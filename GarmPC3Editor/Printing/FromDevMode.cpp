// Imports what a driver or a user changed in a DEVMODEW into a configuration.

#include "GarmPC3Editor/Model/Numbers.h"
#include "GarmPC3Editor/Printing/Conversions.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "GarmPC3Editor/Printing/PaperNames.h"
#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"

#include <optional>
#include <span>
#include <utility>

namespace
{
Fault::Sizes sizesOf(const DevModeView& devMode)
{
    return {static_cast<std::int32_t>(devMode.size()), static_cast<std::int32_t>(devMode.driverExtra())};
}

// One import. Its steps run in the order of run(); if one fails, the changes of the earlier ones stay (quirk 27).
class Import
{
public:
    // modified is set by any change and never cleared here.
    Import(GmPlotCfg3& cfg, const DevModeView& dm, bool insert, bool& modified, Fault& fault)
        : m_cfg(cfg), m_dm(dm), m_fields(dm.fields()), m_insert(insert), m_modified(modified), m_fault(fault)
    {
    }

    bool run(const OdString& printerName);

private:
    bool fitsConfiguration(const OdString& printerName);
    void importSizes();
    void importPrivateBytes();
    bool importPaper(GmPrinterInfo& printer, HDC dc);
    void nameAsSystemPrinter(const GmPrinterInfo& printer);
    bool importCustomNumbers();
    bool importNumber(OdStringView key, std::uint32_t value);
    void importMedia();
    void importColor();
    void importColorDepth(HDC dc);
    void importDriverName(const GmPrinterInfo& printer);
    void importDitherAndDuplex();

    bool fail(Fault fault)
    {
        fault.stage = FaultStage::importDevMode;
        m_fault = std::move(fault);
        return false;
    }

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
    Fault& m_fault;
};

bool Import::run(const OdString& printerName)
{
    if (!fitsConfiguration(printerName))
        return false;
    importSizes();
    importPrivateBytes();

    // The driver is asked about the device mode that is imported. It gets a copy: the caller's may be misaligned, and
    // drivers read past the end.
    const DevModeBlock block = DevModeBlock::copyOf(m_dm);
    GmPrinterInfo printer(m_cfg.m_meta.m_win_device_name, block.get());
    if (!printer.isOpen())
        return fail(printer.openFault(FaultStage::importDevMode));
    if (m_insert)
        nameAsSystemPrinter(printer);

    // The stored driver name is passed as it is; it is still "" while a configuration is being created.
    DeviceContext dc = createDeviceContext(m_cfg.m_meta.m_win_driver_name.c_str(),
                                           m_cfg.m_meta.m_win_device_name.c_str(), block.get());
    if (!importPaper(printer, dc.get()))
        return false;
    if (!importCustomNumbers())
        return false;
    importMedia();
    importColor();
    noteChange(m_cfg.m_res_color_mem.m_resolution.set(m_fields, dc.get()));
    importColorDepth(dc.get());
    dc.reset();
    // A device that does not dither, or cannot tell, shows all its colours undithered. Not a change: quirk 30.
    if (!m_dm.has(DM_DITHERTYPE) || m_fields.dmDitherType == 1)
        m_cfg.m_res_color_mem.m_num_undithered_colors = m_cfg.m_res_color_mem.m_num_colors;
    importDriverName(printer);
    importDitherAndDuplex();
    return true;
}

// Only device modes of the configuration's own printer and driver can be imported; the two sizes identify the driver.
bool Import::fitsConfiguration(const OdString& printerName)
{
    const OdArray<unsigned char> bytes = makeDevMode(m_cfg, m_fault);
    const DevModeView current(std::span(bytes.begin(), bytes.end()));
    if (!current)
        return false;
    if (!m_dm)
        return fail({.code = FaultCode::badDevMode});
    if (current.size() != m_dm.size() || current.driverExtra() != m_dm.driverExtra())
        return fail({.code = FaultCode::otherSizes, .stored = sizesOf(current), .given = sizesOf(m_dm)});
    if (!odEqualNoCase(printerName, m_cfg.m_meta.m_win_device_name))
        return fail({.code = FaultCode::otherPrinter, .text = m_cfg.m_meta.m_win_device_name});
    return true;
}

// The sizes and private bytes are stored already, otherwise the device mode would not have matched.
void Import::importSizes()
{
    GmCustomNode& custom = *m_cfg.m_custom;
    custom.setNumber(m_fields.dmDriverExtra, storedDevMode::driverExtra, false);
    custom.setNumber(m_fields.dmSize, storedDevMode::size, false);
}

void Import::importPrivateBytes()
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

// Sets the name, and new bounds if the name changed or there are no usable ones. Another size under the same name does
// not give new bounds (quirk 15).
bool Import::importPaper(GmPrinterInfo& printer, HDC dc)
{
    const std::optional<OdString> name = importedPaper(m_dm, printer);
    if (!name)
        return fail({.code = FaultCode::unlistedPaper, .paperCode = static_cast<std::uint16_t>(m_fields.dmPaperSize)});
    GmMediaNode& media = m_cfg.m_media;
    const bool renamed = media.m_size.setName(name->c_str());
    if (renamed || media.emptyBounds())
    {
        m_modified = true;
        media.setBounds(dc);
    }
    return true;
}

void Import::nameAsSystemPrinter(const GmPrinterInfo& printer)
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

bool Import::importCustomNumbers()
{
    // The version has no flag of its own; a block that sets no field at all says nothing about it.
    if (m_dm.rawFlags() != 0 && !importNumber(storedDevMode::specVersion, m_fields.dmSpecVersion))
        return false;
    if (m_dm.has(DM_MEDIATYPE) && !importNumber(storedDevMode::mediaType, m_fields.dmMediaType))
        return false;
    // Negative codes keep their sign in the wider number: -1 is stored as 4294967295.
    if (m_dm.has(DM_DEFAULTSOURCE) &&
        !importNumber(storedDevMode::defaultSource, static_cast<std::uint32_t>(m_fields.dmDefaultSource)))
        return false;
    return !m_dm.has(DM_TTOPTION) ||
           importNumber(storedDevMode::ttOption, static_cast<std::uint32_t>(m_fields.dmTTOption));
}

// Returns false if the number should replace a stored one and there is none.
bool Import::importNumber(OdStringView key, std::uint32_t value)
{
    GmCustomNode& custom = *m_cfg.m_custom;
    if (!m_insert && !m_modified)
    {
        std::int32_t stored = 0;
        noteChange(!custom.getNumber(key, stored) || static_cast<std::uint32_t>(stored) != value);
    }
    return custom.setNumber(value, key, m_insert) ||
           fail({.code = FaultCode::missingKey, .block = OD_T("custom"), .key = OdString(key)}); // quirk 28
}

// Imports its fields whether or not they are flagged, as importColor and importDitherAndDuplex do: quirk 26.
void Import::importMedia()
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

void Import::importColor()
{
    GmResColorMemNode& color = m_cfg.m_res_color_mem;
    set(color.m_dm_color, m_fields.dmColor);
    // With colour, merging lines becomes meaningful and gets its default; a choice already made is kept. The default is
    // not reported as a change: quirk 30.
    if (m_fields.dmColor == DMCOLOR_COLOR && !color.m_lines_overwrite)
        color.m_lines_overwrite = GmOptionalFlag(new bool(true));
    set(color.m_icm_method, m_fields.dmICMMethod);
    set(color.m_icm_intent, m_fields.dmICMIntent);
}

void Import::importColorDepth(HDC dc)
{
    if (!dc)
        return;
    GmResColorMemNode& color = m_cfg.m_res_color_mem;
    const int bits = ::GetDeviceCaps(dc, BITSPIXEL);
    if (bits >= 1 && set(color.m_color_depth, bits))
        // Wraps around: quirk 31.
        color.m_num_colors = static_cast<std::int32_t>(1U << (static_cast<unsigned>(bits) % 32U));
}

void Import::importDriverName(const GmPrinterInfo& printer)
{
    OdString driverName;
    if (!printer.driverName(driverName) || driverName == m_cfg.m_meta.m_win_driver_name)
        return;
    m_cfg.m_meta.m_win_driver_name = driverName;
    noteChange(true);
}

void Import::importDitherAndDuplex()
{
    set(m_cfg.m_ditherType, m_fields.dmDitherType);
    set(m_cfg.m_duplex, m_fields.dmDuplex);
    // Unchanged, including flags of missing fields. They decide later which fields toDevMode sets; they are not a
    // setting (quirk 30).
    m_cfg.m_devModeFields = m_dm.rawFlags();
}
} // namespace

bool importDevMode(GmPlotCfg3& configuration, const DevModeView& devMode, const OdString& printerName, bool insert,
                   bool& modified, Fault& fault)
{
    return Import(configuration, devMode, insert, modified, fault).run(printerName);
}
