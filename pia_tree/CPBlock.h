#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>
#include <vector>

// An item that holds items in insertion order. The root of a file is a block named "".
//
// Names are compared exactly. find and the getters take the first child with that name and that kind; a child of
// another kind before it does not hide it. A getter that returns false leaves its output untouched.
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

    // Appends; a null item is refused.
    bool add(const OdSharedPtr<CPItem>& item);

    unsigned size() const noexcept;
    // The i-th child itself, in stored order; null for an index outside the block.
    OdSharedPtr<CPItem> data(unsigned index) const;

private:
    const CPItem* first(OdStringView name, EType kind) const noexcept;

    std::vector<OdSharedPtr<CPItem>> m_items;
};
