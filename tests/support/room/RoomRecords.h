#pragma once

#include "tests/support/room/PrinterRoom.h"

#include <cstring>

// Builds the output of the spooler: records, followed by the texts and blocks they point to.
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
    // An absent text becomes a null pointer.
    void putText(std::size_t record, std::size_t offset, const std::optional<Text>& text);
    void putBlock(std::size_t record, std::size_t offset, const std::vector<BYTE>& block);

    // Completes a record call from this image, by the protocol of the system or as the lies say.
    BOOL deliver(BYTE* buffer, DWORD size, DWORD* needed) const;

private:
    struct Pointer
    {
        std::size_t at;     // offset of the pointer
        std::size_t target; // offset of what it points to
    };

    std::vector<BYTE> m_bytes;
    std::vector<Pointer> m_pointers;
    std::size_t m_recordSize;
    const RecordLies& m_lies;
};
} // namespace room
