#include "GarmPC3Editor/GmCustomNode.h"

#include "GarmPC3Editor/Model/BlockReader.h"
#include "GarmPC3Editor/Model/FieldVisitor.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "GarmPC3Editor/Model/StoredKeys.h"
#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"

namespace
{
// Replaces the text under key; adds it only when insert is true.
template <class MakeText>
bool store(std::map<OdString, OdString>& items, OdStringView key, bool insert, MakeText makeText)
{
    const auto found = items.find(OdString(key));
    if (found != items.end())
        found->second = makeText();
    else if (insert)
        items.emplace(OdString(key), makeText());
    else
        return false;
    return true;
}

// Adds sub-blocks of one running number.
class ItemWriter
{
public:
    explicit ItemWriter(CPBlock& custom) : m_custom(custom) {}

    // Stores the value.
    void add(const OdString& key, CPItem* value)
    {
        const OdSharedPtr<CPItem> shared(value);
        const OdSharedPtr<CPBlock> item(new CPBlock(decimalFromNumber(m_next++)));
        item->add(new CPStr(OD_T("name"), key));
        item->add(shared);
        m_custom.add(item);
    }

private:
    CPBlock& m_custom;
    std::uint32_t m_next = 0;
};
} // namespace

bool fill(GmCustomNode& node, const BlockReader& reader)
{
    const CPBlock& block = reader.block();
    for (unsigned i = 0; i < block.size(); ++i)
    {
        if (block.kindAt(i) != CPItem::eBlock)
            continue;
        const auto child = block.data(i);
        const auto& item = static_cast<const CPBlock&>(*child);
        const bool hasName =
            item.size() == 2 && item.kindAt(0) == CPItem::eStr && odEqualNoCase(item.nameAt(0), OD_T("name"));
        if (!hasName || item.kindAt(1) == CPItem::eBlock)
            return reader.failAtCustomItem(item.name());

        const OdString key = item.textAt(0);
        // The second item is identified by its position alone; its name is ignored (quirk 3).
        switch (item.kindAt(1))
        {
        case CPItem::eBlock:
            break; // refused above
        case CPItem::eStr:
            node.m_strings[key] = item.textAt(1);
            break;
        case CPItem::eBin:
            // This module writes upper case, so a hand-edited value is converted too. In other binaries the case may
            // matter.
            node.m_binaries[key] =
                key == storedDevMode::privateBytes ? withUpperCaseHexDigits(item.textAt(1)) : item.textAt(1);
            break;
        case CPItem::eNum:
            node.m_numbers[key] = item.textAt(1);
            break;
        case CPItem::eBool:
            node.m_flags[key] = item.flagAt(1) ? 1 : 0;
            break;
        }
    }
    return true;
}

void forEachField(GmCustomNode& node, FieldVisitor& visitor)
{
    visitor.customItems(node);
}

bool GmCustomNode::parse(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmCustomNode::write(CPBlock& block) const
{
    constexpr OdStringView value = OD_T("value");
    ItemWriter writer(block);
    for (const auto& [key, text] : m_numbers)
        writer.add(key, new CPNum(value, text));
    for (const auto& [key, text] : m_binaries)
        writer.add(key, new CPBin(value, text));
    for (const auto& [key, text] : m_strings)
        writer.add(key, new CPStr(value, text));
    for (const auto& [key, flag] : m_flags)
        writer.add(key, new CPBool(value, flag != 0));
    return true;
}

bool GmCustomNode::setNumber(std::uint32_t value, OdStringView key, bool insert)
{
    return store(m_numbers, key, insert, [value] { return decimalFromNumber(value); });
}

bool GmCustomNode::getNumber(OdStringView key, std::int32_t& out) const
{
    const auto found = m_numbers.find(OdString(key));
    return found != m_numbers.end() && numberFromDecimal(found->second, out);
}

bool GmCustomNode::setRawData(const OdString& text, bool insert)
{
    return store(m_binaries, storedDevMode::privateBytes, insert, [&text] { return text; });
}

bool GmCustomNode::getRawData(OdString& out) const
{
    const auto found = m_binaries.find(OdString(storedDevMode::privateBytes));
    if (found == m_binaries.end())
        return false;
    out = found->second;
    return true;
}
