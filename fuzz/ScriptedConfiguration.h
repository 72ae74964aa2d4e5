#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "fuzz/Input.h"

// A configuration for "Plotter A" that can be converted to a device mode.
GmPlotCfg3 soundConfiguration();

// Sets one aspect of the configuration to what the input says, as a hostile file may have it.
void changeConfiguration(Input& input, GmPlotCfg3& cfg);
