#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// How the editor names a configuration: the file name with extension, and without a file the Windows printer's name.
OdString fileTitle(const OdString& path, const GmPlotCfg3& cfg);
