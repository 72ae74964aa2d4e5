#include "Actions.h"
#include "kernel/OdText.h"

#include <cstdio>

namespace
{
struct Action
{
    const OdChar* name;
    std::size_t arguments; // at least
    int (*run)(const ActionArguments&);
};

constexpr Action actions[] = {
    {OD_T("add"), 2, addPrinter},     {OD_T("delete"), 1, deletePrinter}, {OD_T("accept"), 2, acceptDevMode},
    {OD_T("reset"), 1, resetDrivers}, {OD_T("repeat"), 3, repeatLoading}, {OD_T("languages"), 1, switchLanguages},
};
} // namespace

extern "C" int wmain(int count, wchar_t** values)
{
    for (const Action& action : actions)
        if (count > 1 && OdStringView(values[1]) == action.name &&
            static_cast<std::size_t>(count) >= action.arguments + 2)
            return action.run(ActionArguments(values + 2, values + count));
    std::fputs("usage: e2e_tool ACTION ARGUMENTS...\n", stderr);
    return 2;
}
