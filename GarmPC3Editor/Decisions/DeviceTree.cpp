#include "GarmPC3Editor/Decisions/DeviceTree.h"

bool hasDestination(const GmPlotCfg3& cfg) noexcept
{
    return static_cast<bool>(cfg.m_media.m_destination);
}

bool hasLinesOverwrite(const GmPlotCfg3& cfg) noexcept
{
    return static_cast<bool>(cfg.m_res_color_mem.m_lines_overwrite);
}

std::vector<GmDeviceTreeItem> deviceTree(const GmPlotCfg3& cfg)
{
    std::vector<GmDeviceTreeItem> items;
    for (const GmDeviceRow& row : deviceRows)
    {
        const auto parent = std::ranges::find(items, row.parent, &GmDeviceTreeItem::type);
        if (!row.label || (row.isShown && !row.isShown(cfg)) || (row.parent && parent == items.end()))
            continue;
        if (row.parent)
            parent->hasChildren = true;
        items.push_back({row.type, row.parent, false});
    }
    return items;
}

OdString deviceLabel(std::int32_t type, const GmLabelSource& source)
{
    const GmDeviceRow* const row = deviceRow(type);
    return row && row->label ? row->label(source) : OdString();
}
