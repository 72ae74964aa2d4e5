#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/GmPlotCfg3.h"

// The parts of a resolution name that are shown. It is split at its last underscore, unless that is its first
// character; without one, the whole name is the resolution.
struct GmResolutionParts
{
    OdString resolution;
    OdString dithering;
};
GmResolutionParts resolutionParts(const OdString& name);

// Number of colours and colour depth in one text.
OdString colorsText(const GmResColorMemNode& color, const GmTexts& texts);

// Whether the printer plots in one colour. The depth decides: at a depth of 32 bits the number of colours is 1 too.
bool isMonochrome(const GmResColorMemNode& color) noexcept;

// What a label in the device tree is built from.
struct GmLabelSource
{
    const GmPlotCfg3& cfg;
    const OdString& fileTitle; // names the configuration
    const GmTexts& texts;
};

// The labels of the entries that show a value after their name, and of the root, which shows the file title.
OdString rootLabel(const GmLabelSource& source);
OdString mediaDestLabel(const GmLabelSource& source);
OdString sourceSizeLabel(const GmLabelSource& source);
OdString collatingLabel(const GmLabelSource& source);
OdString vectorGraphicsLabel(const GmLabelSource& source);
OdString rasterGraphicsLabel(const GmLabelSource& source);
OdString trueTypeLabel(const GmLabelSource& source);
OdString mergeCtrlLabel(const GmLabelSource& source);

// The label of an entry that never shows more than its name.
template <UINT name>
OdString nameLabel(const GmLabelSource& source)
{
    return source.texts(name);
}
