#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/GmResColorMemNode.h"

// What a resolution name shows a user. It is split at its last underscore unless that is its first character; a name
// without such an underscore is all resolution.
struct GmResolutionParts
{
    OdString resolution;
    OdString dithering;
};
GmResolutionParts resolutionParts(const OdString& name);

// Number of colours and colour depth in one text.
OdString colorsText(const GmResColorMemNode& color, const GmTexts& texts);

// Whether the printer plots in one colour. The depth tells it: the number of colours of a depth of 32 bits is 1 too.
bool isMonochrome(const GmResColorMemNode& color) noexcept;
