#include "tests/support/room/RoomState.h"

#include <algorithm>

using namespace room;

namespace
{
class HeldCall final : public Held
{
public:
    void enter()
    {
        std::unique_lock lock(m_mutex);
        m_entered = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_released; });
    }

    void awaitEntered() override
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_entered; });
    }

    void release() override
    {
        const std::lock_guard lock(m_mutex);
        m_released = true;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_entered = false;
    bool m_released = false;
};

void clear(State& s)
{
    static_cast<Contents&>(s) = {};
}

// Runs work with the locked state and returns its result.
template <class Work>
decltype(auto) locked(Work work)
{
    State& s = state();
    const std::lock_guard lock(s.mutex);
    return work(s);
}
} // namespace

PrinterRoom::PrinterRoom()
{
    locked([](State& s) { clear(s); });
}

PrinterRoom::~PrinterRoom()
{
    locked(
        [](State& s)
        {
            for (const std::weak_ptr<Held>& held : s.held)
                if (const auto one = held.lock())
                    one->release();
            clear(s);
        });
}

Printer& PrinterRoom::add(Printer printer)
{
    return locked([&](State& s) -> Printer& { return s.present.emplace_back(std::move(printer)); });
}

void PrinterRoom::remove(const Text& name)
{
    locked(
        [&](State& s)
        {
            const Printer* const found = s.find(name);
            const auto place = std::ranges::find_if(s.present, [found](const Printer& one) { return &one == found; });
            if (place != s.present.end())
                s.gone.splice(s.gone.end(), s.present, place);
        });
}

void PrinterRoom::allowNetworkPass()
{
    locked([](State& s) { s.networkPass = true; });
}

void PrinterRoom::writeHandleOnFailedOpen()
{
    locked([](State& s) { s.handleOnFailedOpen = true; });
}

RecordLies& PrinterRoom::lies(Call call)
{
    return locked([call](State& s) -> RecordLies& { return s.lies[call]; });
}

void PrinterRoom::refuse(Call call, const Text& printer)
{
    locked([&](State& s) { s.refusedFor.emplace(call, printer); });
}

void PrinterRoom::refuse(Call call)
{
    locked([call](State& s) { s.refused.insert(call); });
}

void PrinterRoom::failNth(int n)
{
    locked(
        [n](State& s)
        {
            s.failIn = n;
            s.failed = false;
        });
}

void PrinterRoom::throwNth(int n)
{
    locked(
        [n](State& s)
        {
            s.throwIn = n;
            s.failed = false;
        });
}

bool PrinterRoom::failureReached() const
{
    return locked([](State& s) { return s.failed; });
}

void PrinterRoom::setDocumentFailure(LONG answer)
{
    locked([answer](State& s) { s.documentFailure = answer; });
}

void PrinterRoom::onCall(Call call, const Text& printer, Hook hook)
{
    locked([&](State& s) { s.hooks.push_back({call, printer, std::move(hook)}); });
}

void PrinterRoom::forgetHooks()
{
    locked([](State& s) { s.hooks.clear(); });
}

std::shared_ptr<Held> PrinterRoom::hold(Call call, const Text& printer)
{
    const auto held = std::make_shared<HeldCall>();
    locked([&](State& s) { s.held.push_back(held); });
    onCall(call, printer, [held](const CallRecord&) { held->enter(); });
    return held;
}

int PrinterRoom::openHandles() const
{
    return locked([](State& s) { return static_cast<int>(s.printers.size()); });
}

int PrinterRoom::openContexts() const
{
    return locked([](State& s) { return static_cast<int>(s.contexts.size()); });
}

int PrinterRoom::strayCloses() const
{
    return locked([](State& s) { return s.strayCloses; });
}

std::vector<CallRecord> PrinterRoom::calls() const
{
    return locked([](State& s) { return s.calls; });
}

int PrinterRoom::count(Call call) const
{
    return locked([call](State& s) { return static_cast<int>(std::ranges::count(s.calls, call, &CallRecord::call)); });
}

void PrinterRoom::forgetCalls()
{
    locked([](State& s) { s.calls.clear(); });
}

std::vector<PostedMessage> PrinterRoom::posted() const
{
    return locked([](State& s) { return s.posted; });
}

void PrinterRoom::awaitPosted(std::size_t count) const
{
    State& s = state();
    std::unique_lock lock(s.mutex);
    s.postedOne.wait(lock, [&] { return s.posted.size() >= count; });
}

std::vector<ShownMessage> PrinterRoom::shownMessages() const
{
    return locked([](State& s) { return s.shown; });
}

void PrinterRoom::setMessageBoxAnswer(int answer)
{
    locked([answer](State& s) { s.messageBoxAnswer = answer; });
}

void PrinterRoom::putString(HINSTANCE library, UINT id, const Text& text)
{
    locked([&](State& s) { s.strings[{library, id}] = text; });
}

HWND PrinterRoom::newWindow()
{
    return locked([](State& s) { return reinterpret_cast<HWND>(s.newHandle()); });
}

HINSTANCE PrinterRoom::newLibrary()
{
    return locked([](State& s) { return reinterpret_cast<HINSTANCE>(s.newHandle()); });
}
