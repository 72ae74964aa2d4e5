#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace files
{
// Bytes on the heap that are not cleared on allocation: files and texts fill them immediately, and clearing would cost
// as much as reading. One byte beyond the capacity may be written; a parser puts its sentinel there.
class ByteBuffer
{
public:
    ByteBuffer() = default;
    explicit ByteBuffer(std::size_t capacity) : m_memory(new char[capacity + 1]), m_capacity(capacity) {}

    char* data() noexcept { return m_memory.get() + m_begin; }
    std::size_t size() const noexcept { return m_size; }
    std::size_t capacity() const noexcept { return m_capacity - m_begin; }
    std::string_view view() const noexcept { return {m_memory.get() + m_begin, m_size}; }

    // At most the capacity.
    void setSize(std::size_t size) noexcept { m_size = size; }

    // Drops the first bytes without moving the rest.
    void dropFront(std::size_t count) noexcept
    {
        m_begin += count;
        m_size -= count;
    }

    // Makes room for at least this much, keeping the content.
    void reserve(std::size_t capacity)
    {
        if (capacity <= this->capacity())
            return;
        ByteBuffer larger(capacity);
        if (m_size)
            std::memcpy(larger.data(), data(), m_size);
        larger.m_size = m_size;
        *this = std::move(larger);
    }

    // Makes room for more bytes after the content, at least doubling the capacity.
    void reserveMore(std::size_t count)
    {
        if (capacity() - m_size < count)
            reserve(std::max(m_size + count, 2 * capacity()));
    }

private:
    std::unique_ptr<char[]> m_memory;
    std::size_t m_begin = 0;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};
} // namespace files
