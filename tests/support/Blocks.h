#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"

#include <string>
#include <vector>

// Helpers to build and describe block trees.
namespace blocks
{
using Item = OdSharedPtr<CPItem>;

inline Item str(OdStringView name, OdStringView value)
{
    return new CPStr(name, value);
}
inline Item num(OdStringView name, OdStringView text)
{
    return new CPNum(name, text);
}
inline Item bin(OdStringView name, OdStringView text)
{
    return new CPBin(name, text);
}
inline Item flag(OdStringView name, bool value)
{
    return new CPBool(name, value);
}

inline OdSharedPtr<CPBlock> make(OdStringView name, const std::vector<Item>& items = {})
{
    OdSharedPtr<CPBlock> block(new CPBlock(name));
    for (const auto& item : items)
        block->add(item);
    return block;
}

inline const CPBlock& asBlock(const CPItem& item)
{
    return static_cast<const CPBlock&>(item);
}

inline std::vector<Item> itemsOf(const CPBlock& block)
{
    std::vector<Item> items;
    for (unsigned i = 0; i < block.size(); ++i)
        items.push_back(block.data(i));
    return items;
}

// A copy of the block with the first child of that name replaced, or removed if other is null.
inline OdSharedPtr<CPBlock> with(const CPBlock& block, OdStringView name, const Item& other)
{
    OdSharedPtr<CPBlock> changed(new CPBlock(block.name()));
    bool done = false;
    for (const auto& item : itemsOf(block))
    {
        const bool here = !done && item->name() == name;
        done = done || here;
        if (!here)
            changed->add(item);
        else if (other)
            changed->add(other);
    }
    return changed;
}

// The same for the item at a path ("media/size/name").
inline OdSharedPtr<CPBlock> withAt(const CPBlock& block, OdStringView path, const Item& other)
{
    const std::size_t slash = path.find('/');
    const OdStringView name = path.substr(0, slash);
    if (slash == OdStringView::npos)
        return with(block, name, other);
    const Item inner = block.find(name, CPItem::eBlock);
    return with(block, name, withAt(asBlock(*inner), path.substr(slash + 1), other));
}

inline OdSharedPtr<CPBlock> without(const CPBlock& block, OdStringView name)
{
    return with(block, name, nullptr);
}

// One line per item, "name=kind text"; the children of a block are indented below it.
inline void describe(const CPBlock& block, const std::string& indent, std::vector<std::string>& lines)
{
    for (const auto& item : itemsOf(block))
    {
        const std::string start = indent + odToUtf8(item->name());
        switch (item->type())
        {
        case CPItem::eBlock:
            lines.push_back(start + "{");
            describe(asBlock(*item), indent + " ", lines);
            break;
        case CPItem::eBool:
            lines.push_back(start + (static_cast<const CPBool&>(*item).value() ? "=true" : "=false"));
            break;
        case CPItem::eStr:
            lines.push_back(start + "=str " + odToUtf8(static_cast<const CPText&>(*item).text()));
            break;
        case CPItem::eNum:
            lines.push_back(start + "=num " + odToUtf8(static_cast<const CPText&>(*item).text()));
            break;
        case CPItem::eBin:
            lines.push_back(start + "=bin " + odToUtf8(static_cast<const CPText&>(*item).text()));
            break;
        }
    }
}

inline std::vector<std::string> linesOf(const CPBlock& block)
{
    std::vector<std::string> lines;
    describe(block, "", lines);
    return lines;
}

// The lines that a node writes.
template <class Node>
std::vector<std::string> written(const Node& node)
{
    CPBlock block(OD_T("node"));
    if (!node.write(block))
        return {"write failed"};
    return linesOf(block);
}
} // namespace blocks
