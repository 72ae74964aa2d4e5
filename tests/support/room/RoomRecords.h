#pragma once

#include "tests/support/room/PrinterRoom.h"

#include <cstring>

// Builds what the spooler delivers: records in front, the texts and blocks they point to behind them.
namespace room
{
class RecordImage
{
public:
    RecordImage(std::size_t count, std::size_t recordSize, const RecordLies& lies);

    template <class Value>
    void put(std::size_t record, std::size_t offset, Value value)
    {
        std::memcpy(m_bytes.data() + record * m_recordSize + offset, &value, sizeof value);
    }
    // Absent: a null pointer.
    void putText(std::size_t record, std::size_t offset, const std::optional<Text>& text);
    void putBlock(std::size_t record, std::size_t offset, const std::vector<BYTE>& block);

    // Answers a record call from this image, by the system's protocol or as the lies say.
    BOOL deliver(BYTE* buffer, DWORD size, DWORD* needed) const;

private:
    struct Pointer
    {
        std::size_t at;     // where it stands
        std::size_t target; // what it points to; both from the start
    };

    std::vector<BYTE> m_bytes;
    std::vector<Pointer> m_pointers;
    std::size_t m_recordSize;
    const RecordLies& m_lies;
};
} // namespace room
