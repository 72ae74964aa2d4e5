#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// A configuration whose internals are accessible.
struct OpenConfiguration : GmPlotCfg3
{
    using GmPlotCfg3::init;
    using GmPlotCfg3::writeToBlock;
};

// Expects that the tree written from a configuration reads back as an equal one. Whether its printer is installed does
// not matter.
void expectReadsBackEqual(const GmPlotCfg3& configuration);

// Expects that a configuration's device mode, if there is one, is as long as it says, flags only what it has room for,
// and holds the stored private bytes.
void expectSoundDevMode(const GmPlotCfg3& configuration);
