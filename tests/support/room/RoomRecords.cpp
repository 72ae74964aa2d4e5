#include "tests/support/room/RoomRecords.h"

#include "tests/support/room/RoomState.h"

#include <algorithm>

namespace room
{
RecordImage::RecordImage(std::size_t count, std::size_t recordSize, const RecordLies& lies)
    : m_bytes(count * recordSize), m_recordSize(recordSize), m_lies(lies)
{
}

void RecordImage::putText(std::size_t record, std::size_t offset, const std::optional<Text>& text)
{
    if (!text)
        return;
    m_bytes.resize((m_bytes.size() + 1) & ~std::size_t{1});
    m_pointers.push_back({record * m_recordSize + offset, m_bytes.size()});
    const std::size_t units = text->size() + (m_lies.unterminatedTexts ? 0 : 1);
    const std::size_t at = m_bytes.size();
    m_bytes.resize(at + units * sizeof(WCHAR));
    if (units > 0)
        std::memcpy(m_bytes.data() + at, text->c_str(), units * sizeof(WCHAR));
}

void RecordImage::putBlock(std::size_t record, std::size_t offset, const std::vector<BYTE>& block)
{
    const std::size_t wanted = m_lies.oddBlocks ? 1 : 2; // of 4
    while (m_bytes.size() % 4 != wanted)
        m_bytes.push_back(0);
    m_pointers.push_back({record * m_recordSize + offset, m_bytes.size()});
    m_bytes.insert(m_bytes.end(), block.begin(), block.end());
}

BOOL RecordImage::deliver(BYTE* buffer, DWORD size, DWORD* needed) const
{
    const auto whole = static_cast<DWORD>(m_bytes.size());
    const bool query = !buffer || size == 0;
    if (needed && !(query && m_lies.neededUnwritten))
        *needed = query ? m_lies.needed.value_or(whole) : whole;
    if (query && m_lies.sizeQuerySucceeds)
        return TRUE;
    if (whole == 0)
        return TRUE; // nothing to deliver, which the system treats as success too
    if (query || (size < whole && !m_lies.fillsWhatFits))
    {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }

    std::vector<BYTE> copy = m_bytes;
    for (const Pointer& pointer : m_pointers)
    {
        const std::size_t target =
            m_lies.pointersOutside ? static_cast<std::size_t>(size) + (1U << 20U) : pointer.target;
        const auto address = reinterpret_cast<std::uintptr_t>(buffer) + target;
        std::memcpy(copy.data() + pointer.at, &address, sizeof address);
    }
    std::memcpy(buffer, copy.data(), std::min<std::size_t>(size, whole));
    std::fill_n(buffer + size, m_lies.overrun, overrunMark);
    return TRUE;
}
} // namespace room
