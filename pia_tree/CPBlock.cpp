#include "pia_tree/CPBlock.h"

#include "pia_tree/CPValue.h"
#include "pia_tree/NumberText.h"
#include "pia_tree/ParsedTree.h"

CPBlock::CPBlock(OdStringView name) : CPItem(eBlock, name) {}

CPBlock::CPBlock(OdString&& name, std::shared_ptr<const pia::ParsedTree> tree, std::uint32_t first, std::uint32_t count)
    : CPItem(eBlock, std::move(name)), m_tree(std::move(tree)), m_first(first), m_parsedCount(count)
{
}

CPBlock::~CPBlock() = default;

unsigned CPBlock::indexOf(OdStringView name, EType kind) const
{
    if (m_parsedCount)
        if (const auto at = m_tree->find({m_first, m_parsedCount}, name, kind); at != pia::ParsedTree::none)
            return at;
    for (unsigned i = m_parsedCount; i < m_items.size(); ++i)
        if (m_items[i]->type() == kind && m_items[i]->name() == name)
            return i;
    return size();
}

OdSharedPtr<CPItem> CPBlock::find(OdStringView name, EType kind) const
{
    return data(indexOf(name, kind));
}

bool CPBlock::getStr(OdString& out, OdStringView name) const
{
    const unsigned at = indexOf(name, eStr);
    if (at == size())
        return false;
    out = textAt(at);
    return true;
}

template <class Number>
bool CPBlock::getNumber(Number& out, OdStringView name) const
{
    const unsigned at = indexOf(name, eNum);
    if (at == size())
        return false;
    if (at < m_parsedCount)
        return m_tree->number(m_first + at, out);
    return pia::readNumber(static_cast<const CPNum&>(*m_items[at]).text().view(), out);
}

bool CPBlock::getInt(std::int32_t& out, OdStringView name) const
{
    return getNumber(out, name);
}

bool CPBlock::getDbl(double& out, OdStringView name) const
{
    return getNumber(out, name);
}

bool CPBlock::getBool(bool& out, OdStringView name) const
{
    const unsigned at = indexOf(name, eBool);
    if (at == size())
        return false;
    out = flagAt(at);
    return true;
}

void CPBlock::makeSlots() const
{
    if (m_items.empty())
        m_items.resize(m_parsedCount);
}

bool CPBlock::add(const OdSharedPtr<CPItem>& item)
{
    if (item.isNull())
        return false;
    makeSlots();
    m_items.push_back(item);
    return true;
}

unsigned CPBlock::size() const noexcept
{
    return m_items.empty() ? m_parsedCount : static_cast<unsigned>(m_items.size());
}

OdSharedPtr<CPItem> CPBlock::data(unsigned index) const
{
    if (index >= size())
        return nullptr;
    makeSlots();
    if (m_items[index].isNull())
        m_items[index] = m_tree->makeItem(m_first + index);
    return m_items[index];
}

CPItem::EType CPBlock::kindAt(unsigned index) const noexcept
{
    return index < m_parsedCount ? m_tree->kind(m_first + index) : m_items[index]->type();
}

OdString CPBlock::nameAt(unsigned index) const
{
    return index < m_parsedCount ? m_tree->name(m_first + index) : m_items[index]->name();
}

OdString CPBlock::textAt(unsigned index) const
{
    return index < m_parsedCount ? m_tree->text(m_first + index) : static_cast<const CPText&>(*m_items[index]).text();
}

bool CPBlock::flagAt(unsigned index) const noexcept
{
    return index < m_parsedCount ? m_tree->flag(m_first + index) : static_cast<const CPBool&>(*m_items[index]).value();
}
