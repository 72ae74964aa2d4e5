#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "fuzz/Input.h"

// A configuration of "Plotter A" that can be turned into a device mode.
GmPlotCfg3 soundConfiguration();

// One side of the configuration becomes what the input says, as a hostile file may have it.
void changeConfiguration(Input& input, GmPlotCfg3& cfg);
