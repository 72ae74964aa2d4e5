#pragma once

#include "tests/support/room/PrinterRoom.h"

#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <set>

// What the room's functions share. One for the process and never destroyed, so that a call which comes late, from a
// thread that outlives its test, finds an empty room and not a dead one.
namespace room
{
struct Hooked
{
    Call call;
    Text printer;
    Hook hook;
};

struct OpenedPrinter
{
    Text name;
    Printer* printer = nullptr; // may be gone: see isPresent
};

struct OpenedContext
{
    Text name;
    DeviceCaps caps;
};

struct State
{
    std::mutex mutex;
    std::condition_variable postedOne;

    std::list<Printer> present;
    std::list<Printer> gone; // kept so that references to them stay valid
    std::map<HANDLE, OpenedPrinter> printers;
    std::map<HDC, OpenedContext> contexts;
    std::uintptr_t lastHandle = 0x10000;
    int strayCloses = 0;

    bool networkPass = false;
    bool handleOnFailedOpen = false;
    std::map<Call, RecordLies> lies;
    std::set<std::pair<Call, Text>> refusedFor;
    std::set<Call> refused;
    int failIn = 0;
    int throwIn = 0;
    bool failed = false;
    LONG documentFailure = -1;
    std::vector<Hooked> hooks;
    std::vector<std::weak_ptr<Held>> held;

    std::vector<CallRecord> calls;
    std::vector<PostedMessage> posted;
    std::vector<ShownMessage> shown;
    int messageBoxAnswer = IDOK;
    std::map<std::pair<HINSTANCE, UINT>, Text> strings;

    std::uintptr_t newHandle() { return lastHandle += 16; }

    // The printer of that name without regard to case, as the system finds it; null when there is none.
    Printer* find(const Text& name);
    bool isPresent(const Printer* printer) const;
    // The printer of an open handle; null for any other handle and for a printer that is gone.
    Printer* ofHandle(HANDLE handle);
    Text nameOfHandle(HANDLE handle) const;
};

State& state();

// None for null.
inline std::optional<Text> textOf(const WCHAR* text)
{
    return text ? std::optional(Text(text)) : std::nullopt;
}

// Takes the entry of a handle out of its map; false when there is none. Does not throw, so that a closing call has
// always closed.
template <class Handle, class Open>
bool takeOut(std::map<Handle, Open>& open, Handle handle, Open& out) noexcept
{
    const auto found = open.find(handle);
    if (found == open.end())
        return false;
    out = std::move(found->second);
    open.erase(found);
    return true;
}

// A call's way into the room. Notes the call, runs the hooks (outside the lock; they may throw), takes the lock for the
// rest of the call, and knows whether the call is to fail.
class Visit
{
public:
    explicit Visit(CallRecord record);
    bool mustFail() const { return m_mustFail; }

private:
    std::unique_lock<std::mutex> m_lock;
    bool m_mustFail = false;
};

// The name that an open printer was opened with.
Text nameOf(HANDLE printer);

// An ASCII letter as a small one: names are compared without regard to case.
WCHAR folded(WCHAR c);

// The bytes of an input block, as many as it claims: a driver reads them all, so a caller that has fewer is found out.
std::vector<BYTE> bytesOf(const DEVMODEW* devMode);

// The default block of a printer: as the spooler keeps it, and as the driver has it after merges that stick.
std::vector<BYTE> defaultBlock(const Printer& printer);
std::vector<BYTE> driverBlock(const Printer& printer);

// What the driver makes of a block under DM_IN_BUFFER.
std::vector<BYTE> mergedBlock(const Printer& printer, const std::vector<BYTE>& input);
} // namespace room
