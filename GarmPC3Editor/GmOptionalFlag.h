#pragma once

#include "kernel/OdSharedPtr.h"

// A flag of the file that is absent, false or true; null means absent. Copies of a node share a present flag: quirk 8.
using GmOptionalFlag = OdSharedPtr<bool>;
