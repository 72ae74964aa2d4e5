#pragma once

#include "kernel/OdString.h"

namespace modulebench
{
// The full path of a file in this program's folder or below it.
OdString besideThisProgram(const OdChar* name);
} // namespace modulebench
