#include "bench/module/Actions.h"
#include "bench/module/AllPages.h"
#include "bench/module/BareCalls.h"
#include "bench/module/BareSheet.h"
#include "bench/module/HostedModule.h"
#include "bench/module/OpenedSheet.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace modulebench
{
namespace
{
// The first rounds fill the system's caches: drivers, fonts, window classes.
constexpr unsigned warmUp = 3;

using Clock = std::chrono::steady_clock;

struct Contender
{
    std::string name;
    std::function<void()> work;
};

void tell(const std::string& name, Clock::duration duration)
{
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(duration).count();
    std::printf("%s: %lld\n", name.c_str(), static_cast<long long>(nanoseconds));
}

// All contenders take turns, and each round begins with a different one, so that none always follows the same other.
template <class Measure>
void interleaved(const std::vector<Contender>& contenders, unsigned rounds, Measure measure)
{
    for (unsigned round = 0; round < warmUp + rounds; ++round)
        for (std::size_t i = 0; i < contenders.size(); ++i)
            measure(contenders[(round + i) % contenders.size()], round >= warmUp);
    std::fflush(stdout);
}

// Checks that a filled sheet has the same contents as the first one seen; the bare one has none.
void sameContents(std::wstring& first, const std::wstring& seen)
{
    if (first.empty())
        first = seen;
    else if (!seen.empty() && seen != first)
        throw std::runtime_error("the editor and the filled sheet do not have the same contents");
}
} // namespace

void timeCommand(const Subject& subject, unsigned rounds)
{
    const HostedModule module;
    const std::vector<Contender> contenders = {
        {"command", [&] { module.ask(subject.configuration); }},
        {"bare", [&] { bareCallsOfCommand(subject.configuration, subject.printer); }}};
    interleaved(contenders, rounds,
                [](const Contender& contender, bool counts)
                {
                    const Clock::time_point begin = Clock::now();
                    contender.work();
                    const Clock::duration taken = Clock::now() - begin;
                    if (counts)
                        tell(contender.name, taken);
                });
}

void timeEditor(const Subject& subject, unsigned rounds)
{
    const HostedModule module;
    const BareSheet bareSheet;
    const WindowHandle owner = createOwner();
    std::wstring contents;
    const std::vector<Contender> contenders = {{"editor", [&] { module.edit(subject.configuration); }},
                                               {"bare", [&] { bareSheet.show(owner.get()); }},
                                               {"bare filled", [&]
                                                {
                                                    bareCallsOfEditor(subject.configuration, subject.printer);
                                                    bareSheet.showFilled(owner.get());
                                                }}};
    interleaved(contenders, rounds,
                [&owner, &contents](const Contender& contender, bool counts)
                {
                    Clock::time_point opened;
                    Clock::time_point switched;
                    const Clock::time_point begin = Clock::now();
                    withSheet(owner.get(), contender.work,
                              [&](HWND sheet)
                              {
                                  paint(sheet);
                                  opened = Clock::now();
                                  showTab(sheet, 1);
                                  paint(sheet);
                                  switched = Clock::now();
                                  sameContents(contents, textsOfTree(sheet));
                              });
                    if (!counts)
                        return;
                    tell(contender.name + " opened", opened - begin);
                    tell(contender.name + " switched", switched - opened);
                });
}
} // namespace modulebench
