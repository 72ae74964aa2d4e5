#include "pia_tree/ParsedTree.h"

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"
#include "pia_tree/NumberText.h"
#include "pia_tree/Signature.h"

#include <algorithm>
#include <cstring>

namespace pia
{
std::uint32_t ParsedTree::find(Range range, OdStringView name, CPItem::EType kind) const
{
    const std::uint32_t wanted = signature(name, kind);
    for (std::uint32_t i = 0; i < range.count; ++i)
    {
        const Record& record = m_records[range.first + i];
        if (record.signature == wanted && record.kind == kind && hasName(record, name))
            return i;
    }
    return none;
}

bool ParsedTree::hasName(const Record& record, OdStringView name) const
{
    const std::string_view raw = rawName(record);
    if (record.isNameEncoded)
        return decoded(raw, m_charset) == name;
    return std::equal(raw.begin(), raw.end(), name.begin(), name.end(),
                      [](char a, OdChar b) { return static_cast<OdChar>(a) == b; });
}

OdString ParsedTree::text(std::uint32_t record) const
{
    return OdString(decoded(rawValue(m_records[record]), m_charset));
}

bool ParsedTree::flag(std::uint32_t record) const noexcept
{
    return m_records[record].valueLength != 0;
}

template <class Number>
bool ParsedTree::readNumberOf(const Record& record, Number& out) const
{
    const std::string_view raw = rawValue(record);
    // Hardly any number is written with escapes, so the raw bytes mostly are the text.
    if (raw.empty() || !std::memchr(raw.data(), '\\', raw.size()))
        return readNumber(raw, out);
    return readNumber(OdStringView(decoded(raw, m_charset)), out);
}

bool ParsedTree::number(std::uint32_t record, std::int32_t& out) const
{
    return readNumberOf(m_records[record], out);
}

bool ParsedTree::number(std::uint32_t record, double& out) const
{
    return readNumberOf(m_records[record], out);
}

OdSharedPtr<CPItem> ParsedTree::makeItem(std::uint32_t index) const
{
    const Record& record = m_records[index];
    OdString name(decoded(rawName(record), m_charset));
    switch (record.kind)
    {
    case CPItem::eBlock:
        return OdSharedPtr<CPItem>(new CPBlock(std::move(name), shared_from_this(), record.value, record.valueLength));
    case CPItem::eBool:
        return OdSharedPtr<CPItem>(new CPBool(name, flag(index)));
    case CPItem::eStr:
        return OdSharedPtr<CPItem>(new CPStr(CPText::Parts{std::move(name), text(index)}));
    case CPItem::eBin:
        return OdSharedPtr<CPItem>(new CPBin(CPText::Parts{std::move(name), text(index)}));
    case CPItem::eNum:
        return OdSharedPtr<CPItem>(new CPNum(CPText::Parts{std::move(name), text(index)}));
    }
    return nullptr;
}
} // namespace pia
