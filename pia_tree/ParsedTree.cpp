#include "pia_tree/ParsedTree.h"

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"
#include "pia_tree/NumberText.h"
#include "pia_tree/Signature.h"

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
    if (raw.size() != name.size())
        return false;
    // The signatures were equal, so this hardly ever ends early: comparing many units at once is faster than stopping.
    unsigned difference = 0;
    for (std::size_t i = 0; i < raw.size(); ++i)
        difference |= static_cast<unsigned char>(raw[i]) ^ static_cast<unsigned>(name[i]);
    return difference == 0;
}

OdString ParsedTree::name(std::uint32_t record) const
{
    return OdString(decoded(rawName(m_records[record]), m_charset));
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
    // Hardly any number is written with escapes, so the raw bytes usually are the text.
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
    OdString itsName = name(index);
    switch (record.kind)
    {
    case CPItem::eBlock:
        return OdSharedPtr<CPItem>(
            new CPBlock(std::move(itsName), shared_from_this(), record.value, record.valueLength));
    case CPItem::eBool:
        return OdSharedPtr<CPItem>(new CPBool(itsName, flag(index)));
    case CPItem::eStr:
        return OdSharedPtr<CPItem>(new CPStr(CPText::Parts{std::move(itsName), text(index)}));
    case CPItem::eBin:
        return OdSharedPtr<CPItem>(new CPBin(CPText::Parts{std::move(itsName), text(index)}));
    case CPItem::eNum:
        return OdSharedPtr<CPItem>(new CPNum(CPText::Parts{std::move(itsName), text(index)}));
    }
    return nullptr;
}
} // namespace pia
