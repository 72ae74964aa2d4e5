#pragma once

// The fields of a node as one list of rows. Read order and write order are that list, so a file written here reads
// back equal, and a new field is one row. A row knows its key, its member, what a missing key means and when the item
// is written; the row kinds below are all the rules there are.
//
// read is false at the first row that fails: the rows before it are then stored, that row and those after it are not
// touched. write is false only when a nested node's write is. Running out of memory passes through both as an
// exception on purpose: it must never look like a file without that key.

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

namespace fields
{
// Digits after the point of a double in the file.
template <int count>
using Digits = std::integral_constant<int, count>;
inline constexpr Digits<-1> shortest{}; // as many as it takes to read the same double back
inline constexpr Digits<1> oneDigit{};

// How a value of each kind is read and made. The getters leave their output alone when they fail, so they may take the
// member itself.
struct IntValue
{
    using Type = std::int32_t;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getInt(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPNum(key, value); }
};

template <int digits>
struct DoubleValue
{
    using Type = double;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getDbl(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPNum(key, value, digits); }
};

struct BoolValue
{
    using Type = bool;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getBool(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPBool(key, value); }
};

struct TextValue
{
    using Type = OdString;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getStr(out, key); }
    static CPItem* make(OdStringView key, const Type& value) { return new CPStr(key, value); }
};

// Row: fails the node when missing; always written, an empty text too.
template <class Node, class Value>
struct Required
{
    static constexpr bool isRequired = true;
    OdStringView key;
    typename Value::Type Node::*member;

    bool read(Node& node, const CPBlock& block) const { return Value::read(block, key, node.*member); }
    bool write(const Node& node, CPBlock& block) const
    {
        block.add(Value::make(key, node.*member));
        return true;
    }
};

// Row: keeps the field when missing, and is always written.
template <class Node, class Value>
struct Kept
{
    static constexpr bool isRequired = false;
    OdStringView key;
    typename Value::Type Node::*member;

    bool read(Node& node, const CPBlock& block) const
    {
        Value::read(block, key, node.*member);
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        block.add(Value::make(key, node.*member));
        return true;
    }
};

// Row: keeps the field when missing; not written while it equals `skipped`, which is not always the default. A NaN
// equals nothing, so it is written.
template <class Node, class Value>
struct KeptUnlessSkipped
{
    static constexpr bool isRequired = false;
    OdStringView key;
    typename Value::Type Node::*member;
    typename Value::Type skipped;

    bool read(Node& node, const CPBlock& block) const
    {
        Value::read(block, key, node.*member);
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (node.*member != skipped)
            block.add(Value::make(key, node.*member));
        return true;
    }
};

// Row: a text that becomes "" when missing, whatever it was before; written only when not empty.
template <class Node>
struct OptionalText
{
    static constexpr bool isRequired = false;
    OdStringView key;
    OdString Node::*member;

    bool read(Node& node, const CPBlock& block) const
    {
        if (!block.getStr(node.*member, key))
            (node.*member).empty();
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (!(node.*member).isEmpty())
            block.add(TextValue::make(key, node.*member));
        return true;
    }
};

// Row: absent, false or true. Stays as it was when missing; written, false included, when present.
template <class Node>
struct OptionalFlag
{
    static constexpr bool isRequired = false;
    OdStringView key;
    OdSharedPtr<bool> Node::*member;

    bool read(Node& node, const CPBlock& block) const
    {
        bool value = false;
        // A new flag object: copies of this node that share the old one keep theirs.
        if (block.getBool(value, key))
            node.*member = OdSharedPtr<bool>(new bool(value));
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (const auto& flag = node.*member)
            block.add(BoolValue::make(key, *flag));
        return true;
    }
};

// Fills a new block with the child and adds it; a block whose child's write failed is never added.
template <class Child>
bool addBlock(CPBlock& block, OdStringView key, const Child& child)
{
    const OdSharedPtr<CPBlock> made(new CPBlock(key));
    if (!child.write(*made))
        return false;
    block.add(made);
    return true;
}

// Row: a nested node; fails the node when its block is missing or fails. Always written.
template <class Node, class Child>
struct RequiredBlock
{
    static constexpr bool isRequired = true;
    OdStringView key;
    Child Node::*member;

    bool read(Node& node, const CPBlock& block) const
    {
        const auto found = block.find(key, CPItem::eBlock);
        return found && (node.*member).init(static_cast<const CPBlock&>(*found));
    }
    bool write(const Node& node, CPBlock& block) const { return addBlock(block, key, node.*member); }
};

// Row: a nested node that stays as it was when its block is missing and becomes null when its block is bad; neither
// fails the node. Written only when there is one.
template <class Node, class Child>
struct DroppableBlock
{
    static constexpr bool isRequired = false;
    OdStringView key;
    OdSharedPtr<Child> Node::*member;
    bool (Child::*readChild)(const CPBlock&);

    bool read(Node& node, const CPBlock& block) const
    {
        if (const auto found = block.find(key, CPItem::eBlock))
        {
            OdSharedPtr<Child> child(new Child);
            const bool good = ((*child).*readChild)(static_cast<const CPBlock&>(*found));
            node.*member = good ? child : nullptr;
        }
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        const auto& child = node.*member;
        return !child || addBlock(block, key, *child);
    }
};

template <class Node, class... Rows>
struct Table
{
    std::tuple<Rows...> rows;

    bool read(Node& node, const CPBlock& block) const
    {
        return std::apply([&](const auto&... row) { return (row.read(node, block) && ...); }, rows);
    }
    bool write(const Node& node, CPBlock& block) const
    {
        return std::apply([&](const auto&... row) { return (row.write(node, block) && ...); }, rows);
    }
};

template <class Node, class... Rows>
consteval Table<Node, Rows...> table(Rows... rows)
{
    return {{rows...}};
}

// The rows, by what they promise.

template <class Node>
consteval Required<Node, IntValue> required(const OdChar* key, std::int32_t Node::*member)
{
    return {key, member};
}
template <class Node, int digits>
consteval Required<Node, DoubleValue<digits>> required(const OdChar* key, double Node::*member, Digits<digits>)
{
    return {key, member};
}
template <class Node>
consteval Required<Node, BoolValue> required(const OdChar* key, bool Node::*member)
{
    return {key, member};
}
template <class Node>
consteval Required<Node, TextValue> required(const OdChar* key, OdString Node::*member)
{
    return {key, member};
}
template <class Node, int digits>
consteval Kept<Node, DoubleValue<digits>> kept(const OdChar* key, double Node::*member, Digits<digits>)
{
    return {key, member};
}
template <class Node>
consteval KeptUnlessSkipped<Node, IntValue> keptUnless(std::int32_t skipped, const OdChar* key,
                                                       std::int32_t Node::*member)
{
    return {key, member, skipped};
}
template <class Node, int digits>
consteval KeptUnlessSkipped<Node, DoubleValue<digits>> keptUnless(double skipped, const OdChar* key,
                                                                  double Node::*member, Digits<digits>)
{
    return {key, member, skipped};
}
template <class Node>
consteval OptionalText<Node> optionalText(const OdChar* key, OdString Node::*member)
{
    return {key, member};
}
template <class Node>
consteval OptionalFlag<Node> optionalFlag(const OdChar* key, OdSharedPtr<bool> Node::*member)
{
    return {key, member};
}
template <class Node, class Child>
consteval RequiredBlock<Node, Child> requiredBlock(const OdChar* key, Child Node::*member)
{
    return {key, member};
}
template <class Node, class Child>
consteval DroppableBlock<Node, Child> droppableBlock(const OdChar* key, OdSharedPtr<Child> Node::*member,
                                                     bool (Child::*readChild)(const CPBlock&))
{
    return {key, member, readChild};
}
} // namespace fields
