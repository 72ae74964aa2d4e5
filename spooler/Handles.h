#pragma once

#include "win32/Win32.h"

#include <cstdint>
#include <utility>

// Owns one system handle and closes it exactly once. Drivers have been seen to report success with a handle of -1, so
// -1 and null both count as no handle: they are neither kept nor closed.
template <class Handle, auto close>
class UniqueHandle
{
public:
    UniqueHandle() noexcept = default;
    explicit UniqueHandle(Handle handle) noexcept : m_handle(isUsable(handle) ? handle : nullptr) {}
    UniqueHandle(UniqueHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    ~UniqueHandle() { reset(); }

    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        if (this != &other)
        {
            reset();
            m_handle = std::exchange(other.m_handle, nullptr);
        }
        return *this;
    }

    Handle get() const noexcept { return m_handle; }
    explicit operator bool() const noexcept { return m_handle != nullptr; }

    void reset() noexcept
    {
        const Handle handle = std::exchange(m_handle, nullptr);
        if (!handle)
            return;
        try
        {
            close(handle);
        }
        catch (...)
        {
            // A port monitor may throw while it closes. For us the handle is closed either way.
        }
    }

private:
    static bool isUsable(Handle handle) noexcept { return handle && reinterpret_cast<std::intptr_t>(handle) != -1; }

    Handle m_handle = nullptr;
};

using PrinterHandle = UniqueHandle<HANDLE, &::ClosePrinter>;
using DeviceContext = UniqueHandle<HDC, &::DeleteDC>;

// An open printer, or no handle. A null name is passed on as "": null would open the print server instead.
PrinterHandle openPrinter(const WCHAR* name);

// The device context of a printer, or no handle. The driver gets copies of the texts. devMode may be null; otherwise
// its private bytes follow it.
DeviceContext createDeviceContext(const WCHAR* driver, const WCHAR* printer, const DEVMODEW* devMode);

// LOGPIXELSX or LOGPIXELSY of a device context; 0 if it does not know, which some drivers report as a negative number.
int dotsPerInch(HDC dc, int index);
