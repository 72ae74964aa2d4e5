#pragma once

#include "win32/Win32.h"

#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

using WideText = std::basic_string<WCHAR>;

// What the spooler wrote into one buffer: records, followed by the texts and blocks they point to. Records are read as
// copies, and what a record points to is read only up to the end of the buffer, because sizes, counts and terminators
// come from printer drivers.
class SpoolerRecords
{
public:
    // No records.
    SpoolerRecords() noexcept = default;

    // Zeroed bytes for the spooler to fill, with spare room after them: a record that extends past the requested size
    // reads as zero there, and a driver that writes too far stays in our memory.
    static SpoolerRecords toFill(DWORD size);

    bool isNull() const noexcept { return m_bytes.empty(); }

    // The buffer for the spooler's functions, and the size it asked for.
    BYTE* data() noexcept { return m_bytes.data(); }
    DWORD size() const noexcept { return m_size; }

    // A copy of the record at that index; nothing if it begins past the requested size.
    template <class Record>
    std::optional<Record> at(std::size_t index) const
    {
        if (index >= m_size / sizeof(Record) && (index != 0 || isNull()))
            return std::nullopt;
        Record record;
        std::memcpy(&record, m_bytes.data() + index * sizeof(Record), sizeof record);
        return record;
    }

    // The text a record points to, up to its NUL or the end of the buffer; nothing for a null pointer or one that
    // points out of the buffer.
    std::optional<WideText> text(const WCHAR* pointer) const;

    // The bytes from what a record points to up to the end of the buffer; none for a null pointer or one that points
    // out of the buffer. May be misaligned.
    std::span<const BYTE> bytesAt(const void* pointer) const noexcept;

private:
    std::vector<BYTE> m_bytes;
    DWORD m_size = 0;
};

// No set of records is this long; a larger number is an error, not a size.
inline constexpr DWORD largestSpoolerAnswer = 64U << 20U;

// Runs the spooler's size-then-fill protocol. query takes (buffer, size, needed) and returns the result of the function
// it calls. A size query that succeeds has nothing to deliver and counts as a failure, as does a size of zero. Returns
// no records on any failure.
template <class Query>
SpoolerRecords queryInfo(Query query)
{
    // Some failing calls do not write the size at all.
    DWORD needed = 0;
    if (query(static_cast<BYTE*>(nullptr), DWORD{0}, &needed) || needed == 0 || needed > largestSpoolerAnswer)
        return {};
    SpoolerRecords records = SpoolerRecords::toFill(needed);
    if (!query(records.data(), records.size(), &needed))
        return {};
    return records;
}
