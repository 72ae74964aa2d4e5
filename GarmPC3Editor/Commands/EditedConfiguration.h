#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// A configuration on its way to the editor.
struct EditedConfiguration
{
    OdSharedPtr<GmPlotCfg3> cfg; // null when there is nothing to edit
    OdString path;               // of its file; empty for one that has none yet
};

// The configuration of that name on the host's search path; the search decides whether an ending is added. paperName,
// when not empty, becomes its paper.
EditedConfiguration openForEditing(const OdString& name, const OdString& paperName) noexcept;

// A new configuration for an installed printer, with its settings passed once through the driver so that it starts
// with what the driver makes of them.
EditedConfiguration createForEditing(const OdString& printerName) noexcept;
