#pragma once

#include "campaign/Transcript.h"
#include "kernel/OdString.h"

namespace campaign
{
// How long things take in a process that has the spooler loaded, as facts: name, and the milliseconds of each of some
// repetitions. folder gets a configuration for the printer.
void tellTimes(const OdString& printer, const OdString& folder, Transcript& transcript);
} // namespace campaign
