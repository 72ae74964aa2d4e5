#include "tests/support/room/RoomState.h"

// Device contexts.

using namespace room;

namespace
{
Text nameOf(HDC dc)
{
    const std::lock_guard lock(state().mutex);
    const auto found = state().contexts.find(dc);
    return found == state().contexts.end() ? Text() : found->second.name;
}

int capability(const DeviceCaps& caps, int index)
{
    switch (index)
    {
    case LOGPIXELSX:
        return caps.dpiX;
    case LOGPIXELSY:
        return caps.dpiY;
    case PHYSICALWIDTH:
        return caps.width;
    case PHYSICALHEIGHT:
        return caps.height;
    case PHYSICALOFFSETX:
        return caps.offsetX;
    case PHYSICALOFFSETY:
        return caps.offsetY;
    case HORZRES:
        return caps.width - 2 * caps.offsetX;
    case VERTRES:
        return caps.height - 2 * caps.offsetY;
    case BITSPIXEL:
        return caps.bitsPerPixel;
    case PLANES:
        return 1;
    default:
        return 0;
    }
}
} // namespace

extern "C" HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* devMode)
{
    const Visit visit({.call = Call::createDC,
                       .printer = textOrEmpty(device),
                       .null = !driver,
                       .where = textOf(output),
                       .text = textOrEmpty(driver),
                       .devMode = bytesOf(devMode)});
    State& s = state();
    const Printer* const found = device ? s.find(device) : nullptr;
    if (visit.mustFail() || !found)
    {
        ::SetLastError(ERROR_INVALID_PRINTER_NAME);
        return nullptr;
    }
    if (found->scribbles)
        for (const LPCWSTR text : {driver, device})
            if (text && *text)
                *const_cast<LPWSTR>(text) = '?';
    if (found->contextIs)
        return reinterpret_cast<HDC>(*found->contextIs);
    const HDC dc = reinterpret_cast<HDC>(s.newHandle());
    s.contexts.emplace(dc, OpenedContext{found->name, found->caps});
    return dc;
}

extern "C" int WINAPI GetDeviceCaps(HDC dc, int index)
{
    const Visit visit({.call = Call::getDeviceCaps, .printer = nameOf(dc), .detail = static_cast<DWORD>(index)});
    const auto found = state().contexts.find(dc);
    if (visit.mustFail() || found == state().contexts.end())
        return 0;
    return capability(found->second.caps, index);
}

extern "C" BOOL WINAPI DeleteDC(HDC dc)
{
    // As in ClosePrinter, deleted whatever the result of the call.
    OpenedContext closed;
    bool wasOpen = false;
    {
        const std::lock_guard lock(state().mutex);
        wasOpen = takeOut(state().contexts, dc, closed);
    }
    const Visit visit({.call = Call::deleteDC, .printer = std::move(closed.name)});
    if (!wasOpen)
    {
        ++state().strayCloses;
        return FALSE;
    }
    return visit.mustFail() ? FALSE : TRUE;
}
