#pragma once

// The same configuration read from other formats: every peer fills the same members, using the same tables of keys in
// the same order, in the way its library is meant to be used.

#include "GarmPC3Editor/Model/NodeTables.h"
#include "bench/Samples.h"

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

namespace peers
{
template <class Node>
const auto& tableOf()
{
    if constexpr (std::is_same_v<Node, GmMetaNode>)
        return nodes::meta;
    else if constexpr (std::is_same_v<Node, GmMediaNode>)
        return nodes::media;
    else if constexpr (std::is_same_v<Node, GmSizeNode>)
        return nodes::size;
    else if constexpr (std::is_same_v<Node, GmMediaDescriptionNode>)
        return nodes::mediaDescription;
    else if constexpr (std::is_same_v<Node, GmMediaBoundsNode>)
        return nodes::mediaBounds;
    else if constexpr (std::is_same_v<Node, GmDestinationNode>)
        return nodes::destination;
    else if constexpr (std::is_same_v<Node, GmIoNode>)
        return nodes::io;
    else if constexpr (std::is_same_v<Node, GmResColorMemNode>)
        return nodes::resColorMem;
    else if constexpr (std::is_same_v<Node, GmResolutionNode>)
        return nodes::resolution;
    else
        return nodes::configuration;
}

// The keys in the other formats' character type, converted once.
template <class Node>
const std::vector<std::string>& keysOf()
{
    static const auto keys = std::apply(
        [](const auto&... row) { return std::vector<std::string>{odToUtf8(row.key)...}; }, tableOf<Node>().rows);
    return keys;
}

// UTF-8 converted to the members' text; nearly always ASCII, as for us.
inline OdString wide(std::string_view text)
{
    unsigned char all = 0;
    for (const char c : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return OdString(all < 0x80 ? std::basic_string<OdChar>(text.begin(), text.end()) : odFromUtf8(text));
}

template <class Number>
bool numberFrom(std::string_view text, Number& out)
{
    return std::from_chars(text.data(), text.data() + text.size(), out).ec == std::errc();
}

// Source has get(key, out) for each kind of member, get(key, Source&) for a block, and readCustom(GmCustomNode&).
template <class Source, class Node>
bool readNode(Source source, Node& node);

template <class Source, class Node, class Value>
bool readRow(const fields::Required<Node, Value>& row, const std::string& key, Node& node, Source& source)
{
    return source.get(key, node.*row.member);
}

template <class Source, class Node, class Value>
bool readRow(const fields::Kept<Node, Value>& row, const std::string& key, Node& node, Source& source)
{
    source.get(key, node.*row.member);
    return true;
}

template <class Source, class Node, class Value>
bool readRow(const fields::KeptUnlessSkipped<Node, Value>& row, const std::string& key, Node& node, Source& source)
{
    source.get(key, node.*row.member);
    return true;
}

template <class Source, class Node>
bool readRow(const fields::OptionalText<Node>& row, const std::string& key, Node& node, Source& source)
{
    if (!source.get(key, node.*row.member))
        (node.*row.member).empty();
    return true;
}

template <class Source, class Node>
bool readRow(const fields::OptionalFlag<Node>& row, const std::string& key, Node& node, Source& source)
{
    bool value = false;
    if (source.get(key, value))
        node.*row.member = OdSharedPtr<bool>(new bool(value));
    return true;
}

template <class Source, class Node, class Child>
bool readRow(const fields::RequiredBlock<Node, Child>& row, const std::string& key, Node& node, Source& source)
{
    Source block;
    return source.get(key, block) && readNode(block, node.*row.member);
}

template <class Source, class Node, class Child>
bool readRow(const fields::DroppableBlock<Node, Child>& row, const std::string& key, Node& node, Source& source)
{
    Source block;
    if (!source.get(key, block))
        return true;
    OdSharedPtr<Child> child(new Child);
    bool good = false;
    if constexpr (std::is_same_v<Child, GmCustomNode>)
        good = block.readCustom(*child);
    else
        good = readNode(block, *child);
    node.*row.member = good ? child : nullptr;
    return true;
}

template <class Source, class Node>
bool readNode(Source source, Node& node)
{
    const auto& keys = keysOf<Node>();
    std::size_t i = 0;
    return std::apply([&](const auto&... row) { return (readRow(row, keys[i++], node, source) && ...); },
                      tableOf<Node>().rows);
}
} // namespace peers
