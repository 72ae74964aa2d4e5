#include "tests/support/room/RoomState.h"

#include <algorithm>
#include <cstring>
#include <new>

// Window messages, message boxes, string resources.

using namespace room;

namespace
{
// The system has its own memory: an allocation that a test makes fail must not be one of the room.
template <class Work>
auto withMemory(Work work)
{
    try
    {
        return work();
    }
    catch (const std::bad_alloc&)
    {
        return work();
    }
}

BOOL post(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Visit visit({.call = Call::postMessage, .detail = message});
    State& s = state();
    if (visit.mustFail() || !window)
    {
        ::SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    s.posted.push_back({window, message, wParam, lParam});
    s.postedOne.notify_all();
    return TRUE;
}

int showBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    const Text shown = textOrEmpty(text);
    const Visit visit({.call = Call::messageBox, .detail = type, .text = shown});
    if (visit.mustFail())
        return 0;
    state().shown.push_back({owner, shown, textOf(caption), type});
    return state().messageBoxAnswer;
}

int loadString(HINSTANCE instance, UINT id, LPWSTR buffer, int capacity)
{
    const Visit visit({.call = Call::loadString, .detail = id});
    const auto found = state().strings.find({instance, id});
    if (!buffer || capacity < 0)
        return 0;
    const bool missing = visit.mustFail() || found == state().strings.end();
    if (missing)
    {
        if (capacity > 0)
            buffer[0] = 0;
        ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return 0;
    }
    const Text& text = found->second;
    // With a capacity of 0 the buffer receives the address of the text itself, which need not be terminated.
    if (capacity == 0)
    {
        const WCHAR* const address = text.data();
        std::memcpy(static_cast<void*>(buffer), &address, sizeof address);
        return static_cast<int>(text.size());
    }
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = 0;
    return static_cast<int>(length);
}
} // namespace

extern "C" BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return withMemory([=] { return post(window, message, wParam, lParam); });
}

extern "C" int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    return withMemory([=] { return showBox(owner, text, caption, type); });
}

extern "C" int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int capacity)
{
    return withMemory([=] { return loadString(instance, id, buffer, capacity); });
}
