#pragma once

#include "GarmPC3Editor/Decisions/DeviceLabels.h"
#include "resources/Resource.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

// Kinds of entries in the device settings tree. The number is an entry's data, its place in the image list and the key
// of its page; assertions use the names.
enum GmDeviceEntry : std::int32_t
{
    eChecked = 0, // the mark on changed entries; not an entry itself
    eRoot = 1,
    eMedia = 2,
    eMediaDest = 3,
    eSourceSize = 4,
    eCollating = 5,
    eGraphics = 6,
    eVectorGraphics = 7,
    eRasterGraphics = 8,
    eTrueType = 9,
    eMergeCtrl = 10,
    eCustomProp = 11,
};

bool hasDestination(const GmPlotCfg3& cfg) noexcept;
bool hasLinesOverwrite(const GmPlotCfg3& cfg) noexcept;

// All that the editor knows about a kind of entry. Its page's class is added in Dialogs/DevicePages.cpp.
struct GmDeviceRow
{
    GmDeviceEntry type;
    std::optional<GmDeviceEntry> parent; // none for the root
    UINT icon;
    UINT dialog;                                 // of its page; 0 for a kind without a page
    OdString (*label)(const GmLabelSource&);     // null for a kind that is not an entry
    bool (*isShown)(const GmPlotCfg3&) noexcept; // if its parent is shown; null for always
    const char* iconAssertion;                   // reported if the icon is not at the kind's place in the list
};

// In the order in which the entries are inserted, each as the last child of its parent.
inline constexpr GmDeviceRow deviceRows[] = {
    {eChecked, {}, IDI_CHECKED, 0, nullptr, nullptr, "iIcon == eChecked"},
    {eRoot, {}, IDI_SYSTEM_PRINTER, 0, &rootLabel, nullptr, "iIcon == eRoot"},
    {eMedia, eRoot, IDI_MEDIA, 0, &nameLabel<IDS_MEDIA>, nullptr, "iIcon == eMedia"},
    {eSourceSize, eMedia, IDI_SOURCE_SIZE, 0, &sourceSizeLabel, nullptr, "iIcon == eSourceSize"},
    {eMediaDest, eMedia, IDI_MEDIA_DEST, 0, &mediaDestLabel, &hasDestination, "iIcon == eMediaDest"},
    {eCollating, eMediaDest, IDI_COLLATING, IDD_COLLATING, &collatingLabel, nullptr, "iIcon == eCollating"},
    {eGraphics, eRoot, IDI_GRAPHICS, 0, &nameLabel<IDS_GRAPHICS>, nullptr, "iIcon == eGraphics"},
    {eVectorGraphics, eGraphics, IDI_VECTOR_GRAPHICS, IDD_VECTOR_GRAPHICS, &vectorGraphicsLabel, nullptr,
     "iIcon == eVectorGraphics"},
    {eRasterGraphics, eGraphics, IDI_RASTER_GRAPHICS, IDD_RASTER_GRAPHICS, &rasterGraphicsLabel, nullptr,
     "iIcon == eRasterGraphics"},
    {eTrueType, eGraphics, IDI_TRUETYPE, IDD_TRUETYPE, &trueTypeLabel, nullptr, "iIcon == eTrueType"},
    {eMergeCtrl, eGraphics, IDI_MERGE_CTRL, IDD_MERGE_CTRL, &mergeCtrlLabel, &hasLinesOverwrite, "iIcon == eMergeCtrl"},
    {eCustomProp, eRoot, IDI_CUSTOM_PROP, IDD_CUSTOM_PROP, &nameLabel<IDS_CUSTOM_PROP>, nullptr,
     "iIcon == eCustomProp"},
};
inline constexpr std::int32_t deviceRowCount = std::size(deviceRows);

// The place of a kind's row; deviceRowCount for a number that is not a kind.
constexpr std::int32_t placeOfDeviceRow(std::int32_t type) noexcept
{
    return static_cast<std::int32_t>(std::ranges::find(deviceRows, type, &GmDeviceRow::type) - deviceRows);
}

// Whether the kinds are numbered from 0 without a gap, and each parent has its row before its children.
constexpr bool areDeviceRowsInOrder() noexcept
{
    for (std::int32_t type = 0; type < deviceRowCount; ++type)
        if (placeOfDeviceRow(type) == deviceRowCount)
            return false;
    return std::ranges::all_of(deviceRows, [](const GmDeviceRow& row)
                               { return !row.parent || placeOfDeviceRow(*row.parent) < placeOfDeviceRow(row.type); });
}
static_assert(areDeviceRowsInOrder());

// The row of a kind; null for a number that is not a kind.
inline const GmDeviceRow* deviceRow(std::int32_t type) noexcept
{
    const std::int32_t place = placeOfDeviceRow(type);
    return place == deviceRowCount ? nullptr : &deviceRows[place];
}

struct GmDeviceTreeItem
{
    GmDeviceEntry type;
    std::optional<GmDeviceEntry> parent;
    bool hasChildren;

    friend bool operator==(const GmDeviceTreeItem&, const GmDeviceTreeItem&) = default;
};

// The entries of a configuration in the order in which they are inserted. A part that the configuration lacks has no
// entry.
std::vector<GmDeviceTreeItem> deviceTree(const GmPlotCfg3& cfg);

// The label of an entry with the setting's present value; empty for a kind that is not an entry.
OdString deviceLabel(std::int32_t type, const GmLabelSource& source);
