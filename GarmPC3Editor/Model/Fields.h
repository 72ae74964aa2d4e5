#pragma once

// The fields of a node as one list of rows. Read order and write order are that list, so a file written here reads back
// equal, and a new field is one row. A row knows its key, its member, what a missing key means and when the item is
// written; the row kinds below are the only rules. Each node's table is in the node's own source file.
//
// Reading stops at the first row that fails: the rows before it are then stored, that row and those after it are not
// touched. Writing fails only when a nested node's does. Running out of memory passes through both as an exception on
// purpose: it must never look like a file without that key.

#include "GarmPC3Editor/Model/BlockReader.h"
#include "GarmPC3Editor/Model/FieldVisitor.h"
#include "pia_tree/CPValue.h"

#include <cstdint>
#include <tuple>
#include <type_traits>

namespace fields
{
// Digits after the point of a double in the file.
template <int count>
using Digits = std::integral_constant<int, count>;
inline constexpr Digits<-1> shortest{}; // as many as it takes to read the same double back
inline constexpr Digits<1> oneDigit{};

// How a value of each kind is read and created. The getters leave their output alone if they fail, so it may be the
// member itself.
struct IntValue
{
    static constexpr ValueKind kind = ValueKind::wholeNumber;
    using Type = std::int32_t;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getInt(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPNum(key, value); }
};

template <int digits>
struct DoubleValue
{
    static constexpr ValueKind kind = ValueKind::number;
    using Type = double;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getDbl(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPNum(key, value, digits); }
};

struct BoolValue
{
    static constexpr ValueKind kind = ValueKind::flag;
    using Type = bool;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getBool(out, key); }
    static CPItem* make(OdStringView key, Type value) { return new CPBool(key, value); }
};

struct TextValue
{
    static constexpr ValueKind kind = ValueKind::text;
    using Type = OdString;
    static bool read(const CPBlock& block, OdStringView key, Type& out) { return block.getStr(out, key); }
    static CPItem* make(OdStringView key, const Type& value) { return new CPStr(key, value); }
};

// Row: fails the node when missing; always written, even an empty text.
template <class Node, class Value>
struct Required
{
    OdStringView key;
    typename Value::Type Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        return Value::read(reader.block(), key, node.*member) || reader.failAtKey(key, Value::kind);
    }
    bool write(const Node& node, CPBlock& block) const
    {
        block.add(Value::make(key, node.*member));
        return true;
    }
    void visit(Node& node, FieldVisitor& visitor) const { visitor.field({key, RowKind::required, &(node.*member)}); }
};

// Row: keeps the field when missing, and is always written.
template <class Node, class Value>
struct Kept
{
    OdStringView key;
    typename Value::Type Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        Value::read(reader.block(), key, node.*member);
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        block.add(Value::make(key, node.*member));
        return true;
    }
    void visit(Node& node, FieldVisitor& visitor) const { visitor.field({key, RowKind::kept, &(node.*member)}); }
};

// Row: keeps the field when missing; not written while it equals `skipped`, which is not always the default. A NaN
// equals nothing, so it is written.
template <class Node, class Value>
struct KeptUnlessSkipped
{
    OdStringView key;
    typename Value::Type Node::*member;
    typename Value::Type skipped;

    bool read(Node& node, const BlockReader& reader) const
    {
        Value::read(reader.block(), key, node.*member);
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (node.*member != skipped)
            block.add(Value::make(key, node.*member));
        return true;
    }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        visitor.field({key, RowKind::keptUnlessSkipped, &(node.*member)});
    }
};

// Row: a text that becomes "" when missing, whatever it was before; written only when not empty.
template <class Node>
struct OptionalText
{
    OdStringView key;
    OdString Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        if (!reader.block().getStr(node.*member, key))
            (node.*member).empty();
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (!(node.*member).isEmpty())
            block.add(TextValue::make(key, node.*member));
        return true;
    }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        visitor.field({key, RowKind::optionalText, &(node.*member)});
    }
};

// Row: absent, false or true. Stays as it was when missing; written, false included, when present.
template <class Node>
struct OptionalFlag
{
    OdStringView key;
    OdSharedPtr<bool> Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        bool value = false;
        // A new flag object: copies of this node that share the old one keep theirs.
        if (reader.block().getBool(value, key))
            node.*member = OdSharedPtr<bool>(new bool(value));
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        if (const auto& flag = node.*member)
            block.add(BoolValue::make(key, *flag));
        return true;
    }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        visitor.field({key, RowKind::optionalFlag, &(node.*member)});
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
    OdStringView key;
    Child Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        const auto found = reader.block().find(key, CPItem::eBlock);
        if (!found)
            return reader.failAtBlock(key);
        return fill(node.*member, BlockReader(reader, key, static_cast<const CPBlock&>(*found)));
    }
    bool write(const Node& node, CPBlock& block) const { return addBlock(block, key, node.*member); }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        if (!visitor.beginBlock({key, true, true}))
            return;
        forEachField(node.*member, visitor);
        visitor.endBlock();
    }
};

// Row: a nested node that stays as it was when its block is missing and becomes null when its block is bad; neither
// fails the node. Written only when there is one.
template <class Node, class Child>
struct DroppableBlock
{
    OdStringView key;
    OdSharedPtr<Child> Node::*member;

    bool read(Node& node, const BlockReader& reader) const
    {
        if (const auto found = reader.block().find(key, CPItem::eBlock))
        {
            OdSharedPtr<Child> child(new Child);
            const bool good = fill(*child, BlockReader(reader, key, static_cast<const CPBlock&>(*found)));
            if (!good)
                reader.leaveOut();
            node.*member = good ? child : nullptr;
        }
        return true;
    }
    bool write(const Node& node, CPBlock& block) const
    {
        const auto& child = node.*member;
        return !child || addBlock(block, key, *child);
    }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        auto& child = node.*member;
        if (!visitor.beginBlock({key, false, static_cast<bool>(child)}))
            return;
        if (child)
            forEachField(*child, visitor);
        visitor.endBlock();
    }
};

template <class Node, class... Rows>
struct Table
{
    std::tuple<Rows...> rows;

    bool read(Node& node, const BlockReader& reader) const
    {
        return std::apply([&](const auto&... row) { return (row.read(node, reader) && ...); }, rows);
    }
    bool write(const Node& node, CPBlock& block) const
    {
        return std::apply([&](const auto&... row) { return (row.write(node, block) && ...); }, rows);
    }
    void visit(Node& node, FieldVisitor& visitor) const
    {
        std::apply([&](const auto&... row) { (row.visit(node, visitor), ...); }, rows);
    }
};

template <class Node, class... Rows>
consteval Table<Node, Rows...> table(Rows... rows)
{
    return {{rows...}};
}

// The kinds of rows.

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
consteval DroppableBlock<Node, Child> droppableBlock(const OdChar* key, OdSharedPtr<Child> Node::*member)
{
    return {key, member};
}
} // namespace fields
