#pragma once

#include <unistd.h>

#include <utility>

namespace files
{
// Owns a file descriptor; a negative one is none.
class File
{
public:
    explicit File(int descriptor = -1) noexcept : m_descriptor(descriptor) {}
    File(File&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    File& operator=(File&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~File() { close(); }

    explicit operator bool() const noexcept { return m_descriptor >= 0; }
    int get() const noexcept { return m_descriptor; }

    // False if data did not reach the disk; some file systems notice this only when closing.
    bool close() noexcept
    {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};
} // namespace files
