#include "GarmPC3Editor/Decisions/DriverSettings.h"

#include <algorithm>
#include <initializer_list>

namespace
{
enum DriverType : std::int32_t
{
    imageFile = 0,
    windowsPrinter = 1,
    ePlotFile = 3,
};

bool isOneOf(const OdString& model, std::initializer_list<const OdChar*> names)
{
    return std::ranges::any_of(names, [&model](const OdChar* name) { return odEqualNoCase(model, name); });
}
} // namespace

GmDriverSettings driverSettings(const GmMetaNode& meta)
{
    const OdString& model = meta.m_canonical_model_name;
    switch (meta.m_driver_type)
    {
    case windowsPrinter:
        return GmDriverSettings::windowsDriver;
    case ePlotFile:
        return isOneOf(model, {OD_T("DWF6_ePlot_for_plotting"), OD_T("DWFx_ePlot_for_plotting"), OD_T("pdf")})
                   ? GmDriverSettings::ePlotFormat
                   : GmDriverSettings::none;
    case imageFile:
        return isOneOf(model, {OD_T("png"), OD_T("jfif")}) ? GmDriverSettings::imageFormat : GmDriverSettings::none;
    default:
        return GmDriverSettings::none;
    }
}
