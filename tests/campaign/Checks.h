#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "campaign/Driver.h"
#include "campaign/Transcript.h"

// The steps of the campaign for one queue. The names of steps and checks appear in the table of results.
namespace campaign
{
// Runs all checks of a queue. Configurations are written to folder.
void checkQueue(const OdString& printer, const OdString& folder, Transcript& transcript);

// Imports the result of a driver twice, as part of the named check, and checks that the second import changes nothing.
// False if an import failed.
bool takeBack(GmPlotCfg3& configuration, const Merged& answer, const Driver& driver, const char* check,
              Transcript& transcript);

// Selects every paper by name and imports the result of the driver into the configuration.
void checkPapers(GmPlotCfg3& configuration, const Driver& driver, Transcript& transcript);

// Whether the bounds of a configuration count as unknown because the left or the bottom margin is 0.
bool lacksMargin(const GmPlotCfg3& configuration);

// Compares lengths in millimetres with a tolerance for rounding to dots, at 72 dpi or more.
bool sameLength(double one, double other);

// The bytes of the device mode of a configuration.
std::vector<BYTE> blockOf(const GmPlotCfg3& configuration);
} // namespace campaign
