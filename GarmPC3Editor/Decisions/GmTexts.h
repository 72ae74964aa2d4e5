#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <functional>
#include <initializer_list>

// The texts of the language resource library by their number; "" for a number without one. A function, so that a
// dialog's decisions can be tested without a library.
using GmTexts = std::function<OdString(UINT id)>;

// Fills a format of the language library: each "%s" and "%d" takes the next argument, numbers being passed as text, and
// "%%" is a per cent sign. Arguments left over are dropped, and a place without an argument stays empty, so a wrong
// translation looks bad but does no harm.
OdString formatText(OdStringView format, std::initializer_list<OdString> arguments);
