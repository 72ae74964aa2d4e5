#pragma once

#include "tests/support/room/PrinterRoom.h"

#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <set>

// State shared by the functions of the room. One instance per process that is never destroyed, so that a late call from
// a thread that outlives its test finds an empty room.
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
    Printer* printer = nullptr; // may be removed: see isPresent
};

struct OpenedContext
{
    Text name;
    DeviceCaps caps;
};

// What a new room resets.
struct Contents
{
    std::list<Printer> present;
    std::list<Printer> gone; // kept so that references stay valid
    std::map<HANDLE, OpenedPrinter> printers;
    std::map<HDC, OpenedContext> contexts;
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
};

struct State : Contents
{
    std::mutex mutex;
    std::condition_variable postedOne;
    std::uintptr_t lastHandle = 0x10000; // not reset, so that a handle of an earlier room is never valid in a later one

    std::uintptr_t newHandle() { return lastHandle += 16; }

    // Finds a printer by name without regard to case, like the system; null if there is none.
    Printer* find(const Text& name);
    bool isPresent(const Printer* printer) const;
    // The printer of an open handle; null for any other handle and for a removed printer.
    Printer* ofHandle(HANDLE handle);
    Text nameOfHandle(HANDLE handle) const;
};

State& state();

constexpr BYTE overrunMark = 0xEE; // written where a driver overruns its buffer

// Nothing for null.
inline std::optional<Text> textOf(const WCHAR* text)
{
    return text ? std::optional(Text(text)) : std::nullopt;
}

inline Text textOrEmpty(const WCHAR* text)
{
    return text ? Text(text) : Text();
}

// Removes the entry of a handle from its map; false if there is none. Does not throw, so that a closing call always
// closes.
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

// Enters the room for one call: records it, runs the hooks (outside the lock; they may throw), holds the lock for the
// rest of the call, and decides whether the call fails.
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

// The lower-case form of an ASCII letter: names are compared without regard to case.
WCHAR folded(WCHAR c);

// The bytes of an input block, as many as it claims: a driver reads them all, so the sanitizer catches a caller that
// has fewer.
std::vector<BYTE> bytesOf(const DEVMODEW* devMode);

// The default block of a printer, as stored by the spooler and as kept by the driver after merges.
std::vector<BYTE> defaultBlock(const Printer& printer);
std::vector<BYTE> driverBlock(const Printer& printer);

// The result of a call with DM_IN_BUFFER.
std::vector<BYTE> mergedBlock(const Printer& printer, const std::vector<BYTE>& input);
} // namespace room
