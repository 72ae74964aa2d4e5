// What the nodes import from a device context or a device mode: the paper's bounds and the resolution.

#include "GarmPC3Editor/GmMediaNode.h"
#include "GarmPC3Editor/GmResColorMemNode.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "spooler/Handles.h"

#include <utility>

namespace
{
struct PrintQuality
{
    std::int16_t value; // DMRES_*
    OdStringView name;
};

// In the order in which names are tested.
constexpr PrintQuality printQualities[] = {
    {-4, OD_T("DMRES_HIGH")},
    {-3, OD_T("DMRES_MEDIUM")},
    {-2, OD_T("DMRES_LOW")},
    {-1, OD_T("DMRES_DRAFT")},
};

// Null for any number of dots per inch, including 0 and -5.
const PrintQuality* qualityOf(std::int16_t value)
{
    for (const auto& quality : printQualities)
        if (quality.value == value)
            return &quality;
    return nullptr;
}

// The part of the old name that a new one keeps: quirk 32.
OdString suffixOf(const OdString& name)
{
    const int at = name.reverseFind('_');
    if (at >= 0)
        return name.mid(at);
    return name.isEmpty() ? OdString(OD_T("_None")) : OdString();
}

OdString sizeName(double x, double y)
{
    return decimalFromNumber(static_cast<std::int32_t>(x)) + OD_T("x") +
           decimalFromNumber(static_cast<std::int32_t>(y));
}
} // namespace

bool GmMediaNode::setBounds(HDC dc)
{
    if (!dc)
        return false;
    const int dpiX = dotsPerInch(dc, LOGPIXELSX);
    const int dpiY = dotsPerInch(dc, LOGPIXELSY);
    const int pixelOffsetX = GetDeviceCaps(dc, PHYSICALOFFSETX);
    const int pixelOffsetY = GetDeviceCaps(dc, PHYSICALOFFSETY);
    const int pixelWidth = GetDeviceCaps(dc, PHYSICALWIDTH);
    const int pixelHeight = GetDeviceCaps(dc, PHYSICALHEIGHT);
    // A driver that reports no resolution would make every length infinite.
    if (dpiX == 0 || dpiY == 0)
        return false;

    const double mmx = millimetresPerInch / dpiX;
    const double mmy = millimetresPerInch / dpiY;
    const double width = pixelWidth * mmx;
    const double height = pixelHeight * mmy;

    const double llx = pixelOffsetX * mmx;
    const double lly = pixelOffsetY * mmy;
    // Quirk 11.
    const double urx = width - 2 * llx;
    const double ury = height - 2 * lly;

    bool changed = false;
    const auto assign = [&changed](double& to, double value)
    {
        changed |= to != value;
        to = value;
    };
    auto& paper = m_size.m_media_description;
    assign(m_actual_printable_bounds_llx, llx);
    assign(m_actual_printable_bounds_lly, lly);
    assign(m_actual_printable_bounds_urx, urx);
    assign(m_actual_printable_bounds_ury, ury);
    assign(paper.m_printable_bounds_llx, llx);
    assign(paper.m_printable_bounds_lly, lly);
    assign(paper.m_printable_bounds_urx, urx);
    assign(paper.m_printable_bounds_ury, ury);
    // Quirk 11 and quirk 12.
    paper.m_printable_area = (ury - lly) * (urx - llx);
    assign(paper.m_media_bounds.m_urx, width);
    assign(paper.m_media_bounds.m_ury, height);
    return changed;
}

bool GmResolutionNode::set(const DEVMODEW& dm, HDC dc)
{
    const auto* quality = qualityOf(dm.dmPrintQuality);
    if (quality && !dc)
        return false;

    bool changed = false;
    const auto assign = [&changed](double value, double& phys, double& addr, double& effective)
    {
        changed |= phys != value || addr != value || effective != value;
        phys = addr = effective = value;
    };
    const double x = quality ? dotsPerInch(dc, LOGPIXELSX) : dm.dmPrintQuality;
    assign(x, m_phys_resolution_x, m_addr_resolution_x, m_effective_resolution_x);
    // For a quality name too, whatever the driver set there.
    assign(dm.dmYResolution, m_phys_resolution_y, m_addr_resolution_y, m_effective_resolution_y);

    OdString name =
        (quality ? OdString(quality->name) : sizeName(m_phys_resolution_x, m_phys_resolution_y)) + suffixOf(m_name);
    changed |= name != m_name;
    m_name = std::move(name);
    return changed;
}

void GmResolutionNode::get(DEVMODEW& dm) const
{
    for (const auto& quality : printQualities)
    {
        if (!odStartsWithNoCase(m_name, quality.name))
            continue;
        dm.dmPrintQuality = quality.value;
        dm.dmFields |= DM_PRINTQUALITY;
        return;
    }
    if (m_phys_resolution_x != 0.0)
    {
        dm.dmPrintQuality = wrapToInt16(m_phys_resolution_x);
        dm.dmFields |= DM_PRINTQUALITY;
    }
    if (m_phys_resolution_y != 0.0)
    {
        dm.dmYResolution = wrapToInt16(m_phys_resolution_y);
        dm.dmFields |= DM_YRESOLUTION;
    }
}
