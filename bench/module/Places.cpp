#include "bench/module/Places.h"

#include "host/CGarmPath.h"
#include "win32/Win32.h"

namespace modulebench
{
OdString besideThisProgram(const OdChar* name)
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return CGarmPath::join(CGarmPath(OdString(program)).fullFolder(), OdString(name));
}
} // namespace modulebench
