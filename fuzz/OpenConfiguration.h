#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// A configuration whose insides are in reach.
struct OpenConfiguration : GmPlotCfg3
{
    using GmPlotCfg3::init;
    using GmPlotCfg3::writeToBlock;
};

// The tree that is written from a configuration reads to an equal one. Whether its printer is there is not asked.
void expectReadsBackEqual(const GmPlotCfg3& configuration);

// The device mode of a configuration, if there is one, is as long as it says, flags only what it has room for, and
// holds the private bytes that are stored.
void expectSoundDevMode(const GmPlotCfg3& configuration);
