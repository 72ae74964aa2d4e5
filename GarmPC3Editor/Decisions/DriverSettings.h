#pragma once

#include "GarmPC3Editor/GmMetaNode.h"

// Whose settings the custom properties of a configuration are.
enum class GmDriverSettings
{
    none,
    windowsDriver, // of a Windows system printer
    ePlotFormat,   // of a document format that plots are written in
    imageFormat,   // of an image format that plots are written in
};
GmDriverSettings driverSettings(const GmMetaNode& meta);
