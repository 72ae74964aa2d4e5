#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// The configuration to go on with when the user has chosen another printer and newCfg (not null) was made for it. On
// the same driver, its name compared without regard to case, the present one (not null) only takes the new printer's
// name and keeps all edits; otherwise it is the new one.
OdSharedPtr<GmPlotCfg3> exchangedForPrinter(const OdSharedPtr<GmPlotCfg3>& cfg, const OdSharedPtr<GmPlotCfg3>& newCfg);
