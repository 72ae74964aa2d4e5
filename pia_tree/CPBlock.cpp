#include "pia_tree/CPBlock.h"

#include "pia_tree/CPValue.h"
#include "pia_tree/NumberText.h"

#include <algorithm>
#include <string>

namespace
{
// A number is plain ASCII; any other unit becomes a byte that no number has.
template <class Number>
bool readNumber(OdStringView text, Number& out)
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](OdChar c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
    return pia::readNumber(bytes, out);
}
} // namespace

CPBlock::CPBlock(OdStringView name) : CPItem(eBlock, name) {}

CPBlock::~CPBlock() = default;

const CPItem* CPBlock::first(OdStringView name, EType kind) const noexcept
{
    const auto found =
        std::find_if(m_items.begin(), m_items.end(),
                     [&](const OdSharedPtr<CPItem>& item) { return item->type() == kind && item->name() == name; });
    return found == m_items.end() ? nullptr : found->get();
}

OdSharedPtr<CPItem> CPBlock::find(OdStringView name, EType kind) const
{
    const CPItem* item = first(name, kind);
    for (const auto& shared : m_items)
        if (shared.get() == item)
            return shared;
    return nullptr;
}

bool CPBlock::getStr(OdString& out, OdStringView name) const
{
    const CPItem* item = first(name, eStr);
    if (!item)
        return false;
    out = static_cast<const CPStr*>(item)->text();
    return true;
}

bool CPBlock::getInt(std::int32_t& out, OdStringView name) const
{
    const CPItem* item = first(name, eNum);
    return item && readNumber(static_cast<const CPNum*>(item)->text(), out);
}

bool CPBlock::getDbl(double& out, OdStringView name) const
{
    const CPItem* item = first(name, eNum);
    return item && readNumber(static_cast<const CPNum*>(item)->text(), out);
}

bool CPBlock::getBool(bool& out, OdStringView name) const
{
    const CPItem* item = first(name, eBool);
    if (!item)
        return false;
    out = static_cast<const CPBool*>(item)->value();
    return true;
}

bool CPBlock::add(const OdSharedPtr<CPItem>& item)
{
    if (item.isNull())
        return false;
    m_items.push_back(item);
    return true;
}

unsigned CPBlock::size() const noexcept
{
    return static_cast<unsigned>(m_items.size());
}

OdSharedPtr<CPItem> CPBlock::data(unsigned index) const
{
    return index < m_items.size() ? m_items[index] : nullptr;
}
