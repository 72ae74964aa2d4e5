#pragma once

#include "win32/Win32.h"

#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

using WideText = std::basic_string<WCHAR>;

// What the spooler wrote into one buffer: records, and behind them the texts and blocks they point to. Records are read
// as copies, and what a record points to is read only as far as the buffer reaches: sizes, counts and terminators come
// from printer drivers.
class SpoolerRecords
{
public:
    // None.
    SpoolerRecords() noexcept = default;

    // Zeroed bytes for the spooler to fill. There is room behind them: a record that is longer than what was asked for
    // reads as zero there, and a driver that writes too far stays in our memory.
    static SpoolerRecords toFill(DWORD size);

    bool isNull() const noexcept { return m_bytes.empty(); }

    // The buffer as the spooler's functions want it, and the size it asked for.
    BYTE* data() noexcept { return m_bytes.data(); }
    DWORD size() const noexcept { return m_size; }

    // A copy of the record at that index; nothing when it begins outside what was asked for.
    template <class Record>
    std::optional<Record> at(std::size_t index) const
    {
        if (index >= m_size / sizeof(Record) && (index != 0 || isNull()))
            return std::nullopt;
        Record record;
        std::memcpy(&record, m_bytes.data() + index * sizeof(Record), sizeof record);
        return record;
    }

    // The text a record points to, up to its NUL or the end of the buffer; nothing for a null pointer and for one that
    // leads out of the buffer.
    std::optional<WideText> text(const WCHAR* pointer) const;

    // The bytes from what a record points to up to the end of the buffer; none for a null pointer and for one that
    // leads out of the buffer. May be misaligned.
    std::span<const BYTE> bytesAt(const void* pointer) const noexcept;

private:
    std::vector<BYTE> m_bytes;
    DWORD m_size = 0;
};

// No set of records is as long as this; an answer above it is a mistake, not a size.
inline constexpr DWORD largestSpoolerAnswer = 64U << 20U;

// Runs the spooler's size-then-fill protocol, for which query takes (buffer, size, needed) and answers like the
// function it calls. A size query that succeeds has nothing to deliver and counts as failure, as does a size of zero.
// None on any failure.
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
