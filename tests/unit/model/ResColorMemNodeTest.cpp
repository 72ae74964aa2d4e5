#include "GarmPC3Editor/GmResColorMemNode.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;
using blocks::written;

GmResColorMemNode fullNode()
{
    GmResColorMemNode node;
    node.m_name = OD_T("colour");
    node.m_num_colors = 16;
    node.m_color_depth = 4;
    node.m_num_undithered_colors = 17;
    node.m_color_system = 2;
    node.m_dm_color = 3;
    node.m_icm_method = 5;
    node.m_icm_intent = 6;
    node.m_ism_max = 7;
    node.m_ole_max = 8;
    node.m_hard_soft = 9;
    node.m_preference = 10;
    node.m_lines_overwrite = new bool(false);
    node.m_color_mono = new bool(true);
    GmResolutionNode& resolution = node.m_resolution;
    resolution.m_name = OD_T("600x300_None");
    resolution.m_phys_resolution_x = 600.0;
    resolution.m_phys_resolution_y = 300.0;
    resolution.m_addr_resolution_x = 601.5;
    resolution.m_addr_resolution_y = 301.0;
    resolution.m_effective_resolution_x = 602.0;
    resolution.m_effective_resolution_y = 302.0;
    return node;
}

// What fullNode() is written as.
const Lines fullLines = {"name=str colour",
                         "num_colors=num 16",
                         "color_depth=num 4",
                         "num_undithered_colors=num 17",
                         "color_system=num 2",
                         "dm_color=num 3",
                         "icm_method=num 5",
                         "icm_intent=num 6",
                         "ism_max=num 7",
                         "ole_max=num 8",
                         "hard_soft=num 9",
                         "preference=num 10",
                         "lines_overwrite=false",
                         "color_mono=true",
                         "resolution{",
                         " name=str 600x300_None",
                         " phys_resolution_x=num 600.0",
                         " phys_resolution_y=num 300.0",
                         " addr_resolution_x=num 601.5",
                         " addr_resolution_y=num 301.0",
                         " effective_resolution_x=num 602.0",
                         " effective_resolution_y=num 302.0"};

OdSharedPtr<CPBlock> blockOf(const GmResColorMemNode& node)
{
    auto block = blocks::make(OD_T("res_color_mem"));
    EXPECT_TRUE(node.write(*block));
    return block;
}
} // namespace

TEST(ResColorMemNode, aFullNodeWritesEveryKeyInOrder)
{
    EXPECT_EQ(written(fullNode()), fullLines);
}

TEST(ResColorMemNode, readsEveryKeyIntoItsField)
{
    GmResColorMemNode node;
    ASSERT_TRUE(node.init(*blockOf(fullNode())));
    EXPECT_EQ(written(node), fullLines);
}

// Zeroes are left out, not defaults.
TEST(ResColorMemNode, aFreshNodeWritesThreeOfTheOptionalNumbers)
{
    EXPECT_EQ(written(GmResColorMemNode()),
              (Lines{"name=str ", "num_colors=num 256", "color_depth=num 8", "num_undithered_colors=num 256",
                     "color_system=num 0", "dm_color=num 1", "ism_max=num 6", "ole_max=num 6", "preference=num 50",
                     "resolution{", " name=str ", " phys_resolution_x=num 1.0", " phys_resolution_y=num 1.0",
                     " addr_resolution_x=num 1.0", " addr_resolution_y=num 1.0", " effective_resolution_x=num 1.0",
                     " effective_resolution_y=num 1.0"}));
}

TEST(ResColorMemNode, withoutMethodItReadsZeroAndIsWrittenWithout)
{
    GmResColorMemNode node;
    ASSERT_TRUE(node.init(*blocks::without(*blockOf(fullNode()), OD_T("icm_method"))));
    EXPECT_EQ(node.m_icm_method, 0);
    Lines expected = fullLines;
    std::erase(expected, "icm_method=num 5");
    EXPECT_EQ(written(node), expected);
}

TEST(ResColorMemNode, aZeroLimitIsReadButLostByTheNextWrite)
{
    GmResColorMemNode node;
    ASSERT_TRUE(
        node.init(*blocks::with(*blockOf(fullNode()), OD_T("ism_max"), blocks::num(OD_T("ism_max"), OD_T("0")))));
    EXPECT_EQ(node.m_ism_max, 0);
    const auto block = blockOf(node);
    std::int32_t value = 99;
    EXPECT_FALSE(block->getInt(value, OD_T("ism_max")));
    GmResColorMemNode back;
    ASSERT_TRUE(back.init(*block));
    EXPECT_EQ(back.m_ism_max, 6);
}

TEST(ResColorMemNode, eachOptionalNumberIsSkippedAtZeroOnly)
{
    std::int32_t GmResColorMemNode::*const members[] = {
        &GmResColorMemNode::m_icm_method, &GmResColorMemNode::m_icm_intent, &GmResColorMemNode::m_ism_max,
        &GmResColorMemNode::m_ole_max,    &GmResColorMemNode::m_hard_soft,  &GmResColorMemNode::m_preference};
    const auto count = blockOf(fullNode())->size();
    for (const auto member : members)
    {
        GmResColorMemNode node = fullNode();
        node.*member = 0;
        EXPECT_EQ(blockOf(node)->size(), count - 1);
        node.*member = GmResColorMemNode().*member;
        EXPECT_EQ(blockOf(node)->size(), node.*member == 0 ? count - 1 : count);
        node.*member = -1;
        EXPECT_EQ(blockOf(node)->size(), count);
    }
}

TEST(ResColorMemNode, withoutMonoFlagItStaysAbsentAndIsNotWritten)
{
    GmResColorMemNode node;
    ASSERT_TRUE(node.init(*blocks::without(*blockOf(fullNode()), OD_T("color_mono"))));
    EXPECT_TRUE(node.m_color_mono.isNull());
    ASSERT_TRUE(node.m_lines_overwrite);
    EXPECT_FALSE(*node.m_lines_overwrite);
    Lines expected = fullLines;
    std::erase(expected, "color_mono=true");
    EXPECT_EQ(written(node), expected);
}

TEST(ResColorMemNode, copiesShareBothFlagsAndTheLastHolderFreesThem)
{
    OdSharedPtr<bool> lines;
    OdSharedPtr<bool> mono;
    {
        GmResColorMemNode node = fullNode();
        const GmResColorMemNode copy = node;
        *node.m_lines_overwrite = true;
        *node.m_color_mono = false;
        EXPECT_TRUE(*copy.m_lines_overwrite);
        EXPECT_FALSE(*copy.m_color_mono);
        lines = copy.m_lines_overwrite;
        mono = copy.m_color_mono;
        EXPECT_EQ(lines.refCount(), 3);
        EXPECT_EQ(mono.refCount(), 3);
    }
    EXPECT_EQ(lines.refCount(), 1);
    EXPECT_EQ(mono.refCount(), 1);
}

TEST(ResColorMemNode, readingAgainLeavesTheFlagsOfACopyAlone)
{
    GmResColorMemNode node = fullNode();
    *node.m_lines_overwrite = true;
    const GmResColorMemNode copy = node;
    ASSERT_TRUE(node.init(*blockOf(
        []
        {
            auto other = fullNode();
            *other.m_lines_overwrite = false;
            return other;
        }())));
    EXPECT_FALSE(*node.m_lines_overwrite);
    EXPECT_TRUE(*copy.m_lines_overwrite);
}

TEST(ResColorMemNode, withoutResolutionItFailsAfterTheFlags)
{
    GmResColorMemNode node;
    EXPECT_FALSE(node.init(*blocks::without(*blockOf(fullNode()), OD_T("resolution"))));
    EXPECT_TRUE(node.m_color_mono);
    EXPECT_EQ(node.m_preference, 10);
    EXPECT_TRUE(node.m_resolution.m_name.isEmpty());
}

TEST(ResolutionNode, withoutPhysicalValuesTheFieldsAreKept)
{
    auto block = blocks::make(OD_T("resolution"));
    ASSERT_TRUE(fullNode().m_resolution.write(*block));
    block = blocks::without(*blocks::without(*block, OD_T("phys_resolution_x")), OD_T("phys_resolution_y"));
    GmResolutionNode fresh;
    ASSERT_TRUE(fresh.init(*block));
    EXPECT_EQ(fresh.m_phys_resolution_x, 1.0);
    EXPECT_EQ(fresh.m_phys_resolution_y, 1.0);
    EXPECT_EQ(fresh.m_effective_resolution_y, 302.0);
    GmResolutionNode used;
    used.m_phys_resolution_x = 72.0;
    ASSERT_TRUE(used.init(*block));
    EXPECT_EQ(used.m_phys_resolution_x, 72.0);
}

TEST(ResolutionNode, anIntegerTextReadsAsADouble)
{
    auto block = blocks::make(OD_T("resolution"));
    ASSERT_TRUE(fullNode().m_resolution.write(*block));
    GmResolutionNode node;
    ASSERT_TRUE(node.init(*blocks::with(*block, OD_T("addr_resolution_x"), new CPNum(OD_T("addr_resolution_x"), 600))));
    EXPECT_EQ(node.m_addr_resolution_x, 600.0);
}

// One digit, rounded: a resolution has no more, and a longer text would make every saved file differ.
TEST(GmResolutionNode, numbersAreWrittenWithOneDigit)
{
    GmResolutionNode node;
    node.m_phys_resolution_x = 600.26;
    node.m_phys_resolution_y = 600.25001;
    node.m_addr_resolution_x = 600.04;
    node.m_addr_resolution_y = 1199.96;
    node.m_effective_resolution_x = 0.06;
    node.m_effective_resolution_y = -0.26;
    EXPECT_EQ(written(node), (Lines{"name=str ", "phys_resolution_x=num 600.3", "phys_resolution_y=num 600.3",
                                    "addr_resolution_x=num 600.0", "addr_resolution_y=num 1200.0",
                                    "effective_resolution_x=num 0.1", "effective_resolution_y=num -0.3"}));
}
