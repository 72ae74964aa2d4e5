#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// A configuration on its way to the editor and back.
struct EditedConfiguration
{
    OdSharedPtr<GmPlotCfg3> cfg; // null when there is nothing to edit
    OdString path;               // of its file; empty if it has none yet
};

// The configuration of that name on the host's search path; the search decides whether to add an extension. If
// paperName is not empty, it becomes the configuration's paper.
EditedConfiguration openForEditing(const OdString& name, const OdString& paperName) noexcept;

// A new configuration for an installed printer. Its settings have been through the driver once, so it starts with the
// driver's own values.
EditedConfiguration createForEditing(const OdString& printerName) noexcept;

// The result of running the editor.
struct EditResult
{
    OdSharedPtr<GmPlotCfg3> cfg; // the one in the editor at the end
    // The written file's name with extension; the editor's name for the configuration when there was nothing to write;
    // and the path as it was when the user refused a name or the file could not be written.
    OdString fileName;
    bool saved = false;
};

// Lets the user edit a configuration (cfg not null). If the editor was left with OK and something had changed, writes
// it into the first folder of the host's search path, under a name that the user confirms. A failed write is reported
// to the user here.
EditResult editAndSave(EditedConfiguration edited);
