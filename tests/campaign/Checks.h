#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "campaign/Driver.h"
#include "campaign/Transcript.h"

// The steps of the campaign for one queue. Names of steps and checks are those of the table that is made of them.
namespace campaign
{
// Everything there is to find out about a queue. folder gets the configurations that are written.
void checkQueue(const OdString& printer, const OdString& folder, Transcript& transcript);

// Takes a driver's answer back, twice, as a part of the check of that name, and checks that the second time changes
// nothing. False when a takeover failed.
bool takeBack(GmPlotCfg3& configuration, const Merged& answer, const Driver& driver, const char* check,
              Transcript& transcript);

// Chooses every paper by its name, one after the other, and takes each answer back into the configuration.
void checkPapers(GmPlotCfg3& configuration, const Driver& driver, Transcript& transcript);

// Whether a configuration's bounds count as unknown: without a margin at the left or at the bottom they do.
bool lacksMargin(const GmPlotCfg3& configuration);

// Lengths in millimetres that are the same but for rounding to dots, of which the coarsest devices have 72 to an inch.
bool sameLength(double one, double other);

// The bytes of a configuration's device mode.
std::vector<BYTE> blockOf(const GmPlotCfg3& configuration);
} // namespace campaign
