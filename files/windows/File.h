#pragma once

#include <windows.h>

#include <utility>

namespace files
{
// Owns a file handle; INVALID_HANDLE_VALUE is none.
class File
{
public:
    explicit File(HANDLE handle = INVALID_HANDLE_VALUE) noexcept : m_handle(handle) {}
    File(File&& other) noexcept : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE)) {}
    File& operator=(File&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~File() { close(); }

    explicit operator bool() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const noexcept { return m_handle; }

    bool close() noexcept
    {
        const HANDLE handle = std::exchange(m_handle, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || ::CloseHandle(handle);
    }

private:
    HANDLE m_handle;
};
} // namespace files
