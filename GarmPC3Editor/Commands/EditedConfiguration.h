#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// A configuration on its way to the editor and back.
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

// What came of a run of the editor.
struct EditResult
{
    OdSharedPtr<GmPlotCfg3> cfg; // that the editor had in the end
    // The written file's name with extension; the editor's name for the configuration when there was nothing to write;
    // and the path as it was when the user refused a name or the file could not be written.
    OdString fileName;
    bool saved = false;
};

// Lets the user edit a configuration (cfg not null). If the editor was left with OK and something had changed, writes
// it into the first folder of the host's search path, under a name that the user confirms. A failed write is reported
// to the user here.
EditResult editAndSave(EditedConfiguration edited);
