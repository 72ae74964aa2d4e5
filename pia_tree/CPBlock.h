#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace pia
{
class ParsedTree;
}

// An item that holds items in insertion order. The root of a file is a block named "".
//
// Names are compared exactly. find and the getters use the first child with that name and that kind; an earlier child
// of another kind does not hide it. A getter that returns false leaves its output untouched.
//
// The children of a block that was read stay text until they are asked for, so even the const operations are for one
// thread at a time. If memory runs out, std::bad_alloc is thrown and nothing has changed.
class CPBlock : public CPItem
{
public:
    explicit CPBlock(OdStringView name);
    ~CPBlock() override;

    OdSharedPtr<CPItem> find(OdStringView name, EType kind) const;

    bool getStr(OdString& out, OdStringView name) const;
    bool getInt(std::int32_t& out, OdStringView name) const;
    bool getDbl(double& out, OdStringView name) const;
    bool getBool(bool& out, OdStringView name) const;

    // Appends an item; null is refused.
    bool add(const OdSharedPtr<CPItem>& item);

    unsigned size() const noexcept;
    // The i-th child itself, in stored order; null for an index outside the block. It outlives the block.
    OdSharedPtr<CPItem> data(unsigned index) const;

    // The same facts as data(index) without creating the item: most items are read once, and creating one costs more
    // than reading it. The index must be inside the block; textAt is for the kinds that have a text, flagAt for bools.
    EType kindAt(unsigned index) const noexcept;
    OdString nameAt(unsigned index) const;
    OdString textAt(unsigned index) const;
    bool flagAt(unsigned index) const noexcept;

private:
    friend class pia::ParsedTree;
    friend class CPIAParser;

    // Shows count items of a parsed text, beginning with the given one.
    CPBlock(OdString&& name, std::shared_ptr<const pia::ParsedTree> tree, std::uint32_t first, std::uint32_t count);

    // The position of the first child with that name and kind; size() if there is none.
    unsigned indexOf(OdStringView name, EType kind) const;
    void makeSlots() const;
    template <class Number>
    bool getNumber(Number& out, OdStringView name) const;

    std::shared_ptr<const pia::ParsedTree> m_tree; // null if nothing was read
    std::uint32_t m_first = 0;
    std::uint32_t m_parsedCount = 0;
    // Empty until a parsed item is asked for as an object. Then one slot per parsed item, null until that item is asked
    // for, followed by the items that were added.
    mutable std::vector<OdSharedPtr<CPItem>> m_items;
};
