#include "campaign/Checks.h"
#include "campaign/Driver.h"
#include "host/GmModuleLoader.h"
#include "kernel/OdText.h"

#include <cstdio>
#include <functional>
#include <vector>

#include <windows.h>

namespace
{
// Keeps the spooler loaded, so that the other programs need not read the list of queues again. Runs until it is killed.
int hold()
{
    campaign::Driver spooler((OdString()));
    std::puts("held");
    std::fflush(stdout);
    ::WaitForSingleObject(::GetCurrentProcess(), INFINITE);
    return 0;
}

int withModule(const OdString& file, const std::function<void(campaign::Transcript&)>& work)
{
    const auto [module, whyNot] = GmModuleLoader::load(file);
    if (!module)
    {
        std::fprintf(stderr, "not loaded: %s\n", odToUtf8(whyNot).c_str());
        return 2;
    }
    campaign::Transcript transcript;
    work(transcript);
    transcript.step("unload");
    if (const OdString refusal = GmModuleLoader::unload(module); !refusal.isEmpty())
        transcript.failed("process", odToUtf8(refusal), {});
    transcript.step("end");
    return 0;
}

int run(const std::vector<OdString>& words)
{
    using namespace campaign;
    if (words.size() == 1 && words[0] == OD_T("hold"))
        return hold();
    if (words.size() == 4 && words[0] == OD_T("check"))
        return withModule(words[1], [&](Transcript& transcript) { checkQueue(words[3], words[2], transcript); });
    std::fputs("usage: driver_check check MODULE FOLDER QUEUE\n"
               "       driver_check hold\n",
               stderr);
    return 2;
}
} // namespace

extern "C" int wmain(int count, wchar_t** values)
{
    return run(std::vector<OdString>(values + 1, values + count));
}
