#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// Lets the user edit a configuration (not null) and writes it into the first folder of the host's search path, under a
// name the user confirms, when the editor was left with OK and something had changed. True when it was written.
//
// cfg becomes the configuration that the editor had in the end. path becomes the written file's name with extension;
// the editor's name for the configuration when there was nothing to write; and stays when the name was refused or the
// file could not be written. Of the latter the user is told here.
bool editAndSave(OdSharedPtr<GmPlotCfg3>& cfg, OdString& path);
