#include "GarmPC3Editor/Decisions/DeviceTree.h"

#include "resources/Resource.h"

#include <array>

UINT deviceEntryIcon(GmDeviceEntry type) noexcept
{
    static constexpr std::array<UINT, deviceEntryCount> icons = {
        IDI_CHECKED,  IDI_SYSTEM_PRINTER,  IDI_MEDIA,           IDI_MEDIA_DEST, IDI_SOURCE_SIZE, IDI_COLLATING,
        IDI_GRAPHICS, IDI_VECTOR_GRAPHICS, IDI_RASTER_GRAPHICS, IDI_TRUETYPE,   IDI_MERGE_CTRL,  IDI_CUSTOM_PROP,
    };
    return icons[static_cast<std::size_t>(type)];
}

bool deviceEntryHasPage(std::int32_t type) noexcept
{
    return type >= eCollating && type <= eCustomProp && type != eGraphics;
}

std::vector<GmDeviceTreeItem> deviceTree(const GmPlotCfg3& cfg)
{
    std::vector<GmDeviceTreeItem> items = {
        {eRoot, std::nullopt, true},
        {eMedia, eRoot, true},
        {eSourceSize, eMedia, false},
    };
    // Behind source and size although its number is lower.
    if (cfg.m_media.m_destination)
    {
        items.push_back({eMediaDest, eMedia, true});
        items.push_back({eCollating, eMediaDest, false});
    }
    items.push_back({eGraphics, eRoot, true});
    items.push_back({eVectorGraphics, eGraphics, false});
    items.push_back({eRasterGraphics, eGraphics, false});
    items.push_back({eTrueType, eGraphics, false});
    if (cfg.m_res_color_mem.m_lines_overwrite)
        items.push_back({eMergeCtrl, eGraphics, false});
    items.push_back({eCustomProp, eRoot, false});
    return items;
}
