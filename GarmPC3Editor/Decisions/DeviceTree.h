#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/GmPlotCfg3.h"

#include <optional>
#include <vector>

// Kinds of entries in the device settings tree. The number is an entry's data, its place in the image list and the key
// of its page; assertions use the names.
enum GmDeviceEntry : std::int32_t
{
    eChecked = 0, // the mark on changed entries, no entry itself
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
inline constexpr std::int32_t deviceEntryCount = 12;

// The icon of a kind, by its number in the language resource library.
UINT deviceEntryIcon(GmDeviceEntry type) noexcept;

// Whether a page belongs to a kind; the others leave the frame empty.
bool deviceEntryHasPage(std::int32_t type) noexcept;

struct GmDeviceTreeItem
{
    GmDeviceEntry type;
    std::optional<GmDeviceEntry> parent; // none for the root; each kind stands at most once in the tree
    bool hasChildren;

    friend bool operator==(const GmDeviceTreeItem&, const GmDeviceTreeItem&) = default;
};

// The entries of a configuration in the order in which they are inserted, each as the last child of its parent. What
// the configuration does not have gets no entry.
std::vector<GmDeviceTreeItem> deviceTree(const GmPlotCfg3& cfg);

// The label of an entry with the setting's present value. fileTitle names the configuration. Empty for a kind that is
// no entry.
OdString deviceLabel(std::int32_t type, const GmPlotCfg3& cfg, const OdString& fileTitle, const GmTexts& texts);
