#include "spooler/SpoolerRecords.h"

#include <cstdint>

namespace
{
// Enough for the longest record, and zero at the end of a text that has no terminator.
constexpr std::size_t spareAfterRecords = 1024;
static_assert(spareAfterRecords >= sizeof(PRINTER_INFO_2W));
} // namespace

SpoolerRecords SpoolerRecords::toFill(DWORD size)
{
    SpoolerRecords records;
    records.m_bytes.resize(size + spareAfterRecords);
    records.m_size = size;
    return records;
}

std::span<const BYTE> SpoolerRecords::bytesAt(const void* pointer) const noexcept
{
    // Compared as numbers, because pointers into different objects have no order.
    const auto first = reinterpret_cast<std::uintptr_t>(m_bytes.data());
    const auto wanted = reinterpret_cast<std::uintptr_t>(pointer);
    if (!pointer || wanted < first || wanted - first >= m_bytes.size())
        return {};
    return std::span(m_bytes).subspan(wanted - first);
}

std::optional<WideText> SpoolerRecords::text(const WCHAR* pointer) const
{
    std::span<const BYTE> rest = bytesAt(pointer);
    if (rest.empty())
        return std::nullopt;
    WideText text;
    for (; rest.size() >= sizeof(WCHAR); rest = rest.subspan(sizeof(WCHAR)))
    {
        WCHAR unit = 0;
        std::memcpy(&unit, rest.data(), sizeof unit); // the pointer may be odd
        if (unit == 0)
            break;
        text.push_back(unit);
    }
    return text;
}
