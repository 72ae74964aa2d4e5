#include "tests/support/room/RoomState.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace room
{
namespace
{
bool sameName(const Text& a, const Text& b)
{
    return std::ranges::equal(a, b, {}, folded, folded);
}
} // namespace

WCHAR folded(WCHAR c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<WCHAR>(c - 'A' + 'a') : c;
}

State& state()
{
    static State* const only = new State;
    return *only;
}

Printer* State::find(const Text& name)
{
    const auto found =
        std::ranges::find_if(present, [&](const Printer& printer) { return sameName(printer.name, name); });
    return found == present.end() ? nullptr : &*found;
}

bool State::isPresent(const Printer* printer) const
{
    return std::ranges::any_of(present, [printer](const Printer& one) { return &one == printer; });
}

Printer* State::ofHandle(HANDLE handle)
{
    const auto found = printers.find(handle);
    return found != printers.end() && isPresent(found->second.printer) ? found->second.printer : nullptr;
}

Text State::nameOfHandle(HANDLE handle) const
{
    const auto found = printers.find(handle);
    return found == printers.end() ? Text() : found->second.name;
}

Visit::Visit(CallRecord record) : m_lock(state().mutex)
{
    State& s = state();
    s.calls.push_back(record);
    if (s.failIn > 0 && --s.failIn == 0)
    {
        s.failed = true;
        m_mustFail = true;
    }
    const bool closes = record.call == Call::closePrinter || record.call == Call::deleteDC;
    if (!closes && s.throwIn > 0 && --s.throwIn == 0)
    {
        s.failed = true;
        throw std::runtime_error("driver");
    }
    if (s.refused.contains(record.call) ||
        std::ranges::any_of(s.refusedFor, [&](const auto& pair)
                            { return pair.first == record.call && sameName(pair.second, record.printer); }))
        m_mustFail = true;

    std::vector<Hook> hooks;
    for (const Hooked& hooked : s.hooks)
        if (hooked.call == record.call && (hooked.printer.empty() || sameName(hooked.printer, record.printer)))
            hooks.push_back(hooked.hook);
    if (hooks.empty())
        return;
    m_lock.unlock();
    for (const Hook& hook : hooks)
        hook(record);
    m_lock.lock();
}

std::vector<BYTE> bytesOf(const DEVMODEW* devMode)
{
    if (!devMode)
        return {};
    const auto first = reinterpret_cast<const BYTE*>(devMode);
    WORD size = 0;
    WORD extra = 0;
    std::memcpy(&size, first + offsetof(DEVMODEW, dmSize), sizeof size);
    std::memcpy(&extra, first + offsetof(DEVMODEW, dmDriverExtra), sizeof extra);
    return {first, first + size + extra};
}

Text nameOf(HANDLE printer)
{
    const std::lock_guard lock(state().mutex);
    return state().nameOfHandle(printer);
}
} // namespace room
