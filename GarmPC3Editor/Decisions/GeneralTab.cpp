#include "GarmPC3Editor/Decisions/GeneralTab.h"

#include "GarmPC3Editor/GmPrnHelper.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "host/CGarmPath.h"
#include "resources/Resource.h"
#include "spooler/PrinterQueries.h"

OdString driverLine(const GmMetaNode& meta, const GmTexts& texts)
{
    if (meta.m_win_device_name.isEmpty())
        return formatText(texts(IDS_FILE_DRIVER), {meta.m_localized_family_name, meta.m_localized_model_name});
    return texts(IDS_SYSTEM_DRIVER);
}

OdString driverFile(const GmMetaNode& meta)
{
    return CGarmPath(meta.m_driver_pathname).fileName();
}

OdString versionLine(const GmMetaNode& meta, const GmTexts& texts)
{
    return texts(IDS_VERSION) + meta.m_driver_version;
}

OdString portLine(const GmPlotCfg3& cfg, const GmTexts& texts)
{
    OdString line = texts(IDS_PORT);
    if (cfg.m_meta.m_config_autospool)
        return line + texts(IDS_PORT_AUTOSPOOL);
    if (cfg.m_io.m_plot_to_file)
        return line + texts(IDS_PORT_FILE);
    if (cfg.m_meta.m_win_device_name.isEmpty())
        return line;
    OdString port;
    GmPrnHelper printer(cfg.m_meta.m_win_device_name.c_str());
    if (printer.isValid() && printer.getPorts(port))
        line += port;
    return line;
}

OdString notInstalledEntry(const OdString& printerName, const GmTexts& texts)
{
    return formatText(texts(IDS_PRINTER_NOT_INSTALLED), {printerName});
}

std::vector<OdString> printerNames(const std::function<bool()>& underWine)
{
    constexpr DWORD passes[] = {PRINTER_ENUM_LOCAL,
                                PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_SHARED | PRINTER_ENUM_NETWORK};
    std::vector<OdString> names;
    for (const DWORD flags : passes)
    {
        const DWORD level = underWine() ? 5 : 1;
        // Print providers are third-party code: one that throws adds no printers.
        for (const InstalledPrinter& printer :
             answerOnThrow(std::vector<InstalledPrinter>(), [&] { return installedPrinters(flags, level); }))
            if (printer.name)
                names.emplace_back(OdStringView(*printer.name));
    }
    return names;
}

OdSharedPtr<GmPlotCfg3> exchangedForPrinter(const OdSharedPtr<GmPlotCfg3>& cfg, const OdSharedPtr<GmPlotCfg3>& newCfg)
{
    GmMetaNode& present = cfg->m_meta;
    const GmMetaNode& chosen = newCfg->m_meta;
    if (present.m_dm_driver_version != chosen.m_dm_driver_version ||
        !odEqualNoCase(present.m_win_driver_name, chosen.m_win_driver_name))
        return newCfg;
    present.m_win_device_name = chosen.m_win_device_name;
    return cfg;
}
