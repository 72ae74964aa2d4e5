// Walks every node's table: what holds for one row kind holds for every row of that kind.
#include "GarmPC3Editor/Model/NodeTables.h"
#include "GarmPC3Editor/Model/DecimalText.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using blocks::linesOf;

template <class Node>
struct TableOf;
#define TABLE_OF(Node, name)                                                                                           \
    template <>                                                                                                        \
    struct TableOf<Node>                                                                                               \
    {                                                                                                                  \
        static constexpr const auto& table = nodes::name;                                                              \
    };
TABLE_OF(GmMetaNode, meta)
TABLE_OF(GmMediaBoundsNode, mediaBounds)
TABLE_OF(GmMediaDescriptionNode, mediaDescription)
TABLE_OF(GmSizeNode, size)
TABLE_OF(GmDestinationNode, destination)
TABLE_OF(GmMediaNode, media)
TABLE_OF(GmIoNode, io)
TABLE_OF(GmResolutionNode, resolution)
TABLE_OF(GmResColorMemNode, resColorMem)
TABLE_OF(GmPlotCfg3, configuration)
#undef TABLE_OF

template <class Node, class Visit>
void forEachRow(Visit visit)
{
    std::apply([&](const auto&... row) { (visit(row), ...); }, TableOf<Node>::table.rows);
}

// Gives every field a value of its own. Two fillers with other starting points share none: numbers and texts differ,
// flags are opposite.
class Filler
{
public:
    Filler(std::int32_t start, bool flag) : m_next(start), m_flag(flag) {}

    void fill(std::int32_t& value) { value = ++m_next; }
    void fill(double& value) { value = ++m_next + 0.5; }
    void fill(bool& value) { value = m_flag; }
    void fill(OdString& value) { value = OdString(OD_T("text ")) + decimalFromNumber(++m_next); }
    void fill(GmCustomNode& node)
    {
        node.setNumber(static_cast<std::uint32_t>(++m_next), OD_T("dmSize"), true);
        node.m_flags[OD_T("flag")] = m_flag;
    }
    template <class Value>
    void fill(OdSharedPtr<Value>& value)
    {
        value = OdSharedPtr<Value>(new Value());
        fill(*value);
    }
    template <class Node>
    void fill(Node& node)
    {
        forEachRow<Node>([&](const auto& row) { fill(node.*row.member); });
    }

private:
    std::int32_t m_next;
    bool m_flag;
};

template <class Node>
Node sample()
{
    Node node;
    Filler(1000, true).fill(node);
    return node;
}

// What a node holds that must not be touched.
template <class Node>
Node poisoned()
{
    Node node;
    Filler(5000, false).fill(node);
    return node;
}

// Equality of fields.
bool same(std::int32_t a, std::int32_t b)
{
    return a == b;
}
bool same(double a, double b)
{
    return a == b;
}
bool same(bool a, bool b)
{
    return a == b;
}
bool same(const OdString& a, const OdString& b)
{
    return a == b;
}
bool same(const GmCustomNode& a, const GmCustomNode& b)
{
    return blocks::written(a) == blocks::written(b);
}
template <class Node>
bool same(const Node& a, const Node& b);
template <class Value>
bool same(const OdSharedPtr<Value>& a, const OdSharedPtr<Value>& b)
{
    return a && b ? same(*a, *b) : a.isNull() == b.isNull();
}
template <class Node>
bool same(const Node& a, const Node& b)
{
    bool equal = true;
    forEachRow<Node>([&](const auto& row) { equal = equal && same(a.*row.member, b.*row.member); });
    return equal;
}

// Through the node's own functions where they are public.
template <class Node>
bool read(Node& node, const CPBlock& block)
{
    return node.init(block);
}
bool read(GmPlotCfg3& node, const CPBlock& block)
{
    return nodes::configuration.read(node, block);
}

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
    EXPECT_TRUE(nodes::configuration.write(node, *block));
    return block;
}

// What the row's field becomes when its key is not there; before is the node before reading.
template <class Row, class Node>
bool isAsIfMissing(const Row& row, const Node& node, const Node& before)
{
    return same(node.*row.member, before.*row.member);
}
template <class Node>
bool isAsIfMissing(const fields::OptionalText<Node>& row, const Node& node, const Node&)
{
    return (node.*row.member).isEmpty();
}

// Reads a block in which the row's key is not usable and checks every field of the node.
template <class Node, class Row>
void expectMissing(const CPBlock& block, const Row& missing)
{
    const Node full = sample<Node>();
    const Node before = poisoned<Node>();
    Node node = poisoned<Node>();
    EXPECT_EQ(read(node, block), !Row::isRequired);

    bool behind = false;
    forEachRow<Node>(
        [&](const auto& row)
        {
            SCOPED_TRACE(odToUtf8(row.key));
            if (row.key == missing.key)
            {
                EXPECT_TRUE(isAsIfMissing(row, node, before));
                behind = true;
            }
            else if (behind && Row::isRequired)
                EXPECT_TRUE(same(node.*row.member, before.*row.member)) << "touched after the failure";
            else
                EXPECT_TRUE(same(node.*row.member, full.*row.member)) << "not stored";
        });
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
    forEachRow<TypeParam>([&](const auto& row)
                          { EXPECT_TRUE(keys.insert(row.key).second) << odToUtf8(row.key) << " is there twice"; });
}

TYPED_TEST(NodeTable, writesInTheOrderOfItsRows)
{
    const auto block = writtenBlock(sample<TypeParam>());
    unsigned i = 0;
    forEachRow<TypeParam>(
        [&](const auto& row)
        {
            ASSERT_LT(i, block->size());
            EXPECT_EQ(block->data(i++)->name(), row.key);
        });
    EXPECT_EQ(i, block->size());
}

TYPED_TEST(NodeTable, readsBackEqual)
{
    const auto full = sample<TypeParam>();
    const auto block = writtenBlock(full);
    auto node = poisoned<TypeParam>();
    ASSERT_TRUE(read(node, *block));
    EXPECT_TRUE(same(node, full));
    EXPECT_EQ(linesOf(*writtenBlock(node)), linesOf(*block));
}

TYPED_TEST(NodeTable, aFreshNodeReadsBackEqual)
{
    const TypeParam fresh;
    TypeParam node;
    ASSERT_TRUE(read(node, *writtenBlock(fresh)));
    EXPECT_TRUE(same(node, fresh));
}

TYPED_TEST(NodeTable, eachKeyMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    forEachRow<TypeParam>(
        [&](const auto& row)
        {
            SCOPED_TRACE("without " + odToUtf8(row.key));
            expectMissing<TypeParam>(*blocks::without(*block, row.key), row);
        });
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
    forEachRow<TypeParam>(
        [&](const auto& row)
        {
            for (const auto& other :
                 {blocks::str(row.key, OD_T("7")), blocks::num(row.key, OD_T("7")), blocks::bin(row.key, OD_T("7")),
                  blocks::flag(row.key, true), blocks::Item(blocks::make(row.key))})
            {
                SCOPED_TRACE(odToUtf8(row.key) + " of kind " + std::to_string(other->type()));
                if (other->type() != kindOf(*block, row.key))
                    expectMissing<TypeParam>(*blocks::with(*block, row.key, other), row);
            }
        });
}

TYPED_TEST(NodeTable, aNumberThatIsNoneCountsAsMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    forEachRow<TypeParam>(
        [&](const auto& row)
        {
            if (kindOf(*block, row.key) != CPItem::eNum)
                return;
            SCOPED_TRACE(odToUtf8(row.key));
            expectMissing<TypeParam>(*blocks::with(*block, row.key, blocks::num(row.key, OD_T("12 dpi"))), row);
        });
}

// A required block is there but lacks its own first key.
TYPED_TEST(NodeTable, aRequiredBlockThatFailsCountsAsMissing)
{
    const auto block = writtenBlock(sample<TypeParam>());
    forEachRow<TypeParam>(
        [&](const auto& row)
        {
            if (!row.isRequired || kindOf(*block, row.key) != CPItem::eBlock)
                return;
            SCOPED_TRACE(odToUtf8(row.key));
            expectMissing<TypeParam>(*blocks::with(*block, row.key, blocks::make(row.key)), row);
        });
}
} // namespace
