#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// What the property pages read from a configuration and write back. A page reads once, when it is created, and keeps
// the values; each store function returns whether a stored value really changed.

// 1 collates, 0 does not; also 0 if the configuration has no destination.
int collatingChoice(const GmPlotCfg3& cfg) noexcept;
// Rewrites the text even if the choice is unchanged (quirk 10). Without a destination nothing is written.
bool storeCollating(GmPlotCfg3& cfg, int choice);

struct GmRasterValues
{
    std::int32_t ismMax = 0;     // 0 to 6
    std::int32_t oleMax = 0;     // 0 to 6
    std::int32_t preference = 0; // 0 to 100

    friend bool operator==(const GmRasterValues&, const GmRasterValues&) = default;
};
GmRasterValues rasterValues(const GmPlotCfg3& cfg) noexcept;
// Compares with what the page has, not with the configuration: quirk 62.
bool storeRaster(GmPlotCfg3& cfg, GmRasterValues& held, const GmRasterValues& now);

// Radio choices: 0 is the first button. The store functions compare with what the page has.
int trueTypeChoice(const GmPlotCfg3& cfg) noexcept; // 0 as text, 1 as graphics
bool storeTrueType(GmPlotCfg3& cfg, int& held, int now);

int mergeChoice(const GmPlotCfg3& cfg) noexcept; // 0 lines overwrite, 1 lines merge; 0 if the file has neither
// A configuration without the value fails an assertion ("m_dlg.cfg().m_res_color_mem.m_lines_overwrite") and is not
// changed.
bool storeMerge(GmPlotCfg3& cfg, int& held, int now);

// What the custom properties of a configuration belong to.
enum class GmDriverSettings
{
    none,
    windowsDriver, // of a Windows system printer
    ePlotFormat,   // of a document format that plots are written in
    imageFormat,   // of an image format that plots are written in
};
GmDriverSettings driverSettings(const GmMetaNode& meta);
