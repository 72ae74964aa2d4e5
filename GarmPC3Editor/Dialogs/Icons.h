#pragma once

#include "spooler/Handles.h"

using IconHandle = UniqueHandle<HICON, &::DestroyIcon>;

// An icon of the current resources, drawn for a square of that many pixels; none when there is no such icon.
IconHandle loadIcon(UINT id, int size);
