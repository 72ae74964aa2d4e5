#pragma once

#include "win32/Win32.h"

#include <cstdint>
#include <utility>

// Owns one handle of the system and closes it exactly once. Drivers have been seen to report success with a handle of
// -1, and CreateFileW fails with it, so that and null both count as none: they are not kept and not closed. The error
// of the call that failed before is still the last one after the close.
template <class Handle, auto close>
class UniqueHandle
{
public:
    UniqueHandle() noexcept = default;
    explicit UniqueHandle(Handle handle) noexcept : m_handle(isUsable(handle) ? handle : nullptr) {}
    UniqueHandle(UniqueHandle&& other) noexcept : m_handle(other.release()) {}
    ~UniqueHandle() { reset(); }

    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        if (this != &other)
        {
            reset();
            m_handle = other.release();
        }
        return *this;
    }

    Handle get() const noexcept { return m_handle; }
    explicit operator bool() const noexcept { return m_handle != nullptr; }

    // Gives the handle to the caller, who closes it.
    [[nodiscard]] Handle release() noexcept { return std::exchange(m_handle, nullptr); }

    void reset() noexcept
    {
        const Handle handle = release();
        if (!handle)
            return;
        const DWORD error = ::GetLastError();
        try
        {
            close(handle);
        }
        catch (...)
        {
            // A port monitor may throw while it closes. The handle is gone for us either way.
        }
        ::SetLastError(error);
    }

private:
    static bool isUsable(Handle handle) noexcept { return handle && reinterpret_cast<std::intptr_t>(handle) != -1; }

    Handle m_handle = nullptr;
};
