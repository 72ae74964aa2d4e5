#pragma once

// The real thing. winspool.h is not part of a lean windows.h.
#include <windows.h>

#include <winspool.h>
