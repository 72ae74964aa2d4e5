#pragma once

// The system's own. A lean windows.h does not include winspool.h.
#include <windows.h>

#include <winspool.h>
