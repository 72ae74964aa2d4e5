#include "bench/module/Actions.h"

#include "bench/module/AllPages.h"
#include "bench/module/BareCalls.h"
#include "bench/module/BareSheet.h"
#include "bench/module/CheckedWindow.h"
#include "bench/module/HostedModule.h"
#include "bench/module/OpenedSheet.h"
#include "tests/support/processcounts/ProcessCounts.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

namespace modulebench
{
namespace
{
constexpr unsigned mostParts = 20;
// How many checks run at the same time: more than a host ever starts for its list of devices.
constexpr unsigned wave = 8;
constexpr auto longestWait = std::chrono::seconds(30);

void tellCounts(const std::string& phase)
{
    for (const ProcessCount& count : allProcessCounts())
        std::printf("%s %s: %s\n", phase.c_str(), count.name, std::to_string(count.value).c_str());
    std::fflush(stdout);
}

// Does the work in parts; each part gets its share of the repetitions.
void inParts(const std::string& phase, unsigned total, const std::function<void(unsigned)>& work)
{
    const unsigned parts = std::min(total, mostParts);
    tellCounts(phase);
    for (unsigned part = 0; part < parts; ++part)
    {
        work(total * (part + 1) / parts - total * part / parts);
        tellCounts(phase);
    }
}

// A check posts its result before its thread has ended.
void awaitThreads(std::size_t wanted)
{
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (threads() > wanted)
    {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the threads of background checks do not end");
        std::this_thread::yield();
    }
}

void runChecks(const std::string& phase, unsigned total, const std::function<void(HWND)>& start)
{
    CheckedWindow window(HostedModule::checkedMessage);
    const std::size_t threadsBefore = threads();
    inParts(phase, total,
            [&](unsigned count)
            {
                while (count > 0)
                {
                    const unsigned now = std::min(count, wave);
                    for (unsigned i = 0; i < now; ++i)
                        start(window.handle());
                    window.await(now);
                    count -= now;
                }
                awaitThreads(threadsBefore);
            });
}

void repeat(const std::string& phase, unsigned total, const std::function<void()>& work)
{
    inParts(phase, total,
            [&](unsigned count)
            {
                for (unsigned i = 0; i < count; ++i)
                    work();
            });
}

void runOpenings(const HostedModule& module, const Subject& subject, unsigned openings)
{
    const WindowHandle owner = createOwner();
    const BareSheet bareSheet;
    repeat("openings", openings,
           [&]
           {
               withSheet(
                   owner.get(), [&] { module.edit(subject.configuration); }, &showAllPages);
           });
    repeat("bare openings", openings,
           [&]
           {
               bareCallsOfEditor(subject.configuration, subject.printer);
               namesOfPrinters();
               withSheet(
                   owner.get(), [&] { bareSheet.show(owner.get()); },
                   [&](HWND sheet) { showAllBarePages(sheet, bareSheet.resources()); });
           });
}

void runAll(const HostedModule& module, const Subject& subject, const Load& load)
{
    const OdString& file = subject.configuration;
    const OdString& printer = subject.printer;
    repeat("calls", load.calls, [&] { module.ask(file); });
    repeat("bare calls", load.calls, [&] { bareCallsOfCommand(file, printer); });
    runChecks("checks", load.checks, [&](HWND window) { module.check(file, window); });
    runChecks("bare checks", load.checks,
              [&](HWND window) { bareCheck(file, printer, window, HostedModule::checkedMessage); });
    runOpenings(module, subject, load.openings);
}
} // namespace

void runLoad(const Subject& subject, const Load& load)
{
    {
        const HostedModule module;
        runAll(module, subject, load);
    }
    // Every background check holds the library while it runs.
    if (HostedModule::isLoaded())
        throw std::runtime_error("the module cannot be unloaded any more");
}
} // namespace modulebench
