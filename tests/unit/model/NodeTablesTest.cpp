// Walks every node's table: what holds for one row kind holds for every row of that kind.
#include "GarmPC3Editor/Model/BlockReader.h"
#include "GarmPC3Editor/Model/FieldVisitor.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace
{
using blocks::linesOf;

// Gives every field a different value. Two fillers with other starting points share none: numbers and texts differ,
// flags are opposite.
class Filler : public FieldVisitor
{
public:
    Filler(std::int32_t start, bool flag) : m_next(start), m_flag(flag) {}

    void field(const Field& field) override
    {
        std::visit([this](auto* member) { fill(*member); }, field.member);
    }
    bool beginBlock(const FieldBlock& block) override
    {
        EXPECT_TRUE(block.isPresent) << odToUtf8(block.key);
        return true;
    }
    void endBlock() override {}
    void customItems(GmCustomNode& custom) override
    {
        custom.setNumber(static_cast<std::uint32_t>(++m_next), OD_T("dmSize"), true);
        custom.m_flags[OD_T("flag")] = m_flag;
    }

private:
    void fill(std::int32_t& value) { value = ++m_next; }
    void fill(double& value) { value = ++m_next + 0.5; }
    void fill(bool& value) { value = m_flag; }
    void fill(OdString& value) { value = OdString(OD_T("text ")) + decimalFromNumber(++m_next); }
    void fill(GmOptionalFlag& value) { value = GmOptionalFlag(new bool(m_flag)); }

    std::int32_t m_next;
    bool m_flag;
};

// Optional blocks are absent in a new node.
template <class Node>
void addOptionalBlocks(Node&)
{
}
void addOptionalBlocks(GmMediaNode& node)
{
    node.m_destination = new GmDestinationNode;
}
void addOptionalBlocks(GmPlotCfg3& node)
{
    addOptionalBlocks(node.m_media);
    node.m_custom = new GmCustomNode;
}

template <class Node>
Node filled(std::int32_t start, bool flag)
{
    Node node;
    addOptionalBlocks(node);
    Filler filler(start, flag);
    forEachField(node, filler);
    return node;
}

template <class Node>
Node sample()
{
    return filled<Node>(1000, true);
}

// The values of a node that must not change.
template <class Node>
Node poisoned()
{
    return filled<Node>(5000, false);
}

// The values of a node, by its own rows; all values of a nested node together.
class Values : public FieldVisitor
{
public:
    struct Row
    {
        OdStringView key;
        bool isRequired;
        bool isBlock;
        bool isOptionalText;
        std::string value;
    };

    template <class Node>
    static std::vector<Row> of(const Node& node)
    {
        Values values;
        Node seen = node;
        forEachField(seen, values);
        return values.m_rows;
    }

    void field(const Field& field) override
    {
        const std::string value = std::visit([](const auto* member) { return textOf(*member); }, field.member);
        if (m_depth == 0)
            m_rows.push_back({field.key, field.isRequired(), false, field.row == RowKind::optionalText, value});
        else
            m_rows.back().value += odToUtf8(field.key) + "=" + value + "\n";
    }
    bool beginBlock(const FieldBlock& block) override
    {
        if (m_depth++ == 0)
            m_rows.push_back({block.key, block.isRequired, true, false, ""});
        m_rows.back().value += odToUtf8(block.key) + (block.isPresent ? "{\n" : " absent\n");
        return true;
    }
    void endBlock() override { --m_depth; }
    void customItems(GmCustomNode& custom) override
    {
        for (const std::string& line : blocks::written(custom))
            m_rows.back().value += line + "\n";
    }

private:
    static std::string textOf(std::int32_t value) { return std::to_string(value); }
    static std::string textOf(double value) { return std::to_string(value); }
    static std::string textOf(bool value) { return value ? "true" : "false"; }
    static std::string textOf(const OdString& value) { return "\"" + odToUtf8(value) + "\""; }
    static std::string textOf(const GmOptionalFlag& value) { return value ? textOf(*value) : "absent"; }

    std::vector<Row> m_rows;
    unsigned m_depth = 0;
};

template <class Node>
std::map<OdStringView, std::string> valuesOf(const Node& node)
{
    std::map<OdStringView, std::string> values;
    for (const Values::Row& row : Values::of(node))
        values[row.key] = row.value;
    return values;
}

template <class Node>
std::vector<Values::Row> rowsOf()
{
    return Values::of(sample<Node>());
}

// Through the node's own functions where they are public.
template <class Node>
bool read(Node& node, const CPBlock& block)
{
    return node.init(block);
}
bool read(GmPlotCfg3& node, const CPBlock& block)
{
    return fillSilently(node, block);
}

struct WritableConfiguration : GmPlotCfg3
{
    explicit WritableConfiguration(const GmPlotCfg3& other) : GmPlotCfg3(other) {}
    using GmPlotCfg3::writeToBlock;
};

template <class Node>
OdSharedPtr<CPBlock> writtenBlock(const Node& node)
{
    auto block = blocks::make(OD_T("node"));
    EXPECT_TRUE(node.write(*block));
    return block;
}
OdSharedPtr<CPBlock> writtenBlock(const GmPlotCfg3& node)
{
    auto block = blocks::make(OD_T(""));
    EXPECT_TRUE(WritableConfiguration(node).writeToBlock(*block));
    return block;
}

// Reads a block in which the row's key is not usable and checks every field of the node.
template <class Node>
void expectMissing(const CPBlock& block, const Values::Row& missing)
{
    const auto full = valuesOf(sample<Node>());
    const auto before = valuesOf(poisoned<Node>());
    Node node = poisoned<Node>();
    EXPECT_EQ(read(node, block), !missing.isRequired);
    const auto after = valuesOf(node);

    bool behind = false;
    for (const Values::Row& row : rowsOf<Node>())
    {
        SCOPED_TRACE(odToUtf8(row.key));
        const std::string& value = after.at(row.key);
        if (row.key == missing.key)
        {
            EXPECT_EQ(value, missing.isOptionalText ? "\"\"" : before.at(row.key));
            behind = true;
        }
        else if (behind && missing.isRequired)
            EXPECT_EQ(value, before.at(row.key)) << "touched after the failure";
        else
            EXPECT_EQ(value, full.at(row.key)) << "not stored";
    }
}

template <class Node>
class NodeTable : public testing::Test
{
};
using Nodes = testing::Types<GmMetaNode, GmMediaBoundsNode, GmMediaDescriptionNode, GmSizeNode, GmDestinationNode,
                             GmMediaNode, GmIoNode, GmResolutionNode, GmResColorMemNode, GmPlotCfg3>;
TYPED_TEST_SUITE(NodeTable, Nodes);

TYPED_TEST(NodeTable, hasNoKeyTwice)
{
    std::set<OdStringView> keys;
    for (const Values::Row& row : rowsOf<TypeParam>())
        EXPECT_TRUE(keys.insert(row.key).second) << odToUtf8(row.key) << " is there twice";
}

TYPED_TEST(NodeTable, writesInTheOrderOfItsRows)
{
    const auto block = writtenBlock(sample<TypeParam>());
    unsigned i = 0;
    for (const Values::Row& row : rowsOf<TypeParam>())
    {
        ASSERT_LT(i, block->size());
        EXPECT_EQ(block->data(i++)->name(), row.key);
    }
    EXPECT_EQ(i, block->size());
}

TYPED_TEST(NodeTable, readsBackEqual)
{
    const auto full = sample<TypeParam>();
    const auto block = writtenBlock(full);
    auto node = poisoned<TypeParam>();
    ASSERT_TRUE(read(node, *block));
    EXPECT_EQ(valuesOf(node), valuesOf(full));
    EXPECT_EQ(linesOf(*writtenBlock(node)), linesOf(*block));
}

TYPED_TEST(NodeTable, aFreshNodeReadsBackEqual)
{
    const TypeParam fresh;
    TypeParam node;
    ASSERT_TRUE(read(node, *writtenBlock(fresh)));
    EXPECT_EQ(valuesOf(node), valuesOf(fresh));
}

TYPED_TEST(NodeTable, eachKeyMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    for (const Values::Row& row : rowsOf<TypeParam>())
    {
        SCOPED_TRACE("without " + odToUtf8(row.key));
        expectMissing<TypeParam>(*blocks::without(*block, row.key), row);
    }
}

CPItem::EType kindOf(const CPBlock& block, OdStringView key)
{
    for (const auto& item : blocks::itemsOf(block))
        if (item->name() == key)
            return item->type();
    ADD_FAILURE() << "no " << odToUtf8(key);
    return CPItem::eBin;
}

TYPED_TEST(NodeTable, aKeyOfAnotherKindCountsAsMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    for (const Values::Row& row : rowsOf<TypeParam>())
    {
        for (const auto& other :
             {blocks::str(row.key, OD_T("7")), blocks::num(row.key, OD_T("7")), blocks::bin(row.key, OD_T("7")),
              blocks::flag(row.key, true), blocks::Item(blocks::make(row.key))})
        {
            SCOPED_TRACE(odToUtf8(row.key) + " of kind " + std::to_string(other->type()));
            if (other->type() != kindOf(*block, row.key))
                expectMissing<TypeParam>(*blocks::with(*block, row.key, other), row);
        }
    }
}

TYPED_TEST(NodeTable, aNumberThatIsNoneCountsAsMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    for (const Values::Row& row : rowsOf<TypeParam>())
    {
        if (kindOf(*block, row.key) != CPItem::eNum)
            continue;
        SCOPED_TRACE(odToUtf8(row.key));
        expectMissing<TypeParam>(*blocks::with(*block, row.key, blocks::num(row.key, OD_T("12 dpi"))), row);
    }
}

// A required block exists but lacks its own first key.
TYPED_TEST(NodeTable, aRequiredBlockThatFailsCountsAsMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    for (const Values::Row& row : rowsOf<TypeParam>())
    {
        if (!row.isRequired || !row.isBlock)
            continue;
        SCOPED_TRACE(odToUtf8(row.key));
        expectMissing<TypeParam>(*blocks::with(*block, row.key, blocks::make(row.key)), row);
    }
}
} // namespace
