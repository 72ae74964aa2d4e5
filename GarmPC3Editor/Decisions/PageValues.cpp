#include "GarmPC3Editor/Decisions/PageValues.h"

#include "kernel/OdAssert.h"

#include <algorithm>
#include <initializer_list>

namespace
{
bool isOneOf(const OdString& model, std::initializer_list<const OdChar*> names)
{
    return std::ranges::any_of(names, [&model](const OdChar* name) { return odEqualNoCase(model, name); });
}
} // namespace

int collatingChoice(const GmPlotCfg3& cfg) noexcept
{
    const auto& destination = cfg.m_media.m_destination;
    return destination && destination->m_collating_type != 0 ? 1 : 0;
}

bool storeCollating(GmPlotCfg3& cfg, int choice)
{
    const auto& destination = cfg.m_media.m_destination;
    return destination && destination->setCollating(choice == 1);
}

GmRasterValues rasterValues(const GmPlotCfg3& cfg) noexcept
{
    const GmResColorMemNode& color = cfg.m_res_color_mem;
    return {color.m_ism_max, color.m_ole_max, color.m_preference};
}

bool storeRaster(GmPlotCfg3& cfg, GmRasterValues& held, const GmRasterValues& now)
{
    if (now == held)
        return false;
    held = now;
    GmResColorMemNode& color = cfg.m_res_color_mem;
    color.m_ism_max = now.ismMax;
    color.m_ole_max = now.oleMax;
    color.m_preference = now.preference;
    return true;
}

int trueTypeChoice(const GmPlotCfg3& cfg) noexcept
{
    return cfg.m_meta.m_truetype_as_text ? 0 : 1;
}

bool storeTrueType(GmPlotCfg3& cfg, int& held, int now)
{
    if (now == held)
        return false;
    held = now;
    cfg.m_meta.m_truetype_as_text = now == 0;
    return true;
}

int mergeChoice(const GmPlotCfg3& cfg) noexcept
{
    const GmOptionalFlag& overwrite = cfg.m_res_color_mem.m_lines_overwrite;
    return overwrite && !*overwrite ? 1 : 0;
}

bool storeMerge(GmPlotCfg3& cfg, int& held, int now)
{
    if (now == held)
        return false;
    const GmOptionalFlag& overwrite = cfg.m_res_color_mem.m_lines_overwrite;
    if (!overwrite)
    {
        odReportAssert("m_dlg.cfg().m_res_color_mem.m_lines_overwrite", "GarmPC3Editor/Dialogs/GmDeviceSubDlg",
                       __LINE__);
        return false;
    }
    held = now;
    *overwrite = now == 0;
    return true;
}

GmDriverSettings driverSettings(const GmMetaNode& meta)
{
    const OdString& model = meta.m_canonical_model_name;
    switch (meta.m_driver_type)
    {
    case eWindowsDriver:
        return GmDriverSettings::windowsDriver;
    case eEPlotDriver:
        return isOneOf(model, {OD_T("DWF6_ePlot_for_plotting"), OD_T("DWFx_ePlot_for_plotting"), OD_T("pdf")})
                   ? GmDriverSettings::ePlotFormat
                   : GmDriverSettings::none;
    case eImageFileDriver:
        return isOneOf(model, {OD_T("png"), OD_T("jfif")}) ? GmDriverSettings::imageFormat : GmDriverSettings::none;
    default:
        return GmDriverSettings::none;
    }
}
