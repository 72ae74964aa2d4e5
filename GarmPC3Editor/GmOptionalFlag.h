#pragma once

#include "kernel/OdSharedPtr.h"

// A flag of the file that is absent, false or true; null means absent. Copies of a node share a present flag on
// purpose: what one sets, the other sees.
using GmOptionalFlag = OdSharedPtr<bool>;
