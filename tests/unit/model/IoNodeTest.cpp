#include "GarmPC3Editor/GmIoNode.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;
using blocks::written;

GmIoNode fileNode()
{
    GmIoNode node;
    node.m_type = 7;
    node.m_pathname = OD_T("D:\\plots");
    node.m_allsysvalid = true;
    node.m_plot_to_file = true;
    return node;
}
} // namespace

TEST(IoNode, aFreshNodeWritesItsDefaultsTheEmptyPathIncluded)
{
    EXPECT_EQ(written(GmIoNode()), (Lines{"type=num 2", "pathname=str ", "allsysvalid=false", "plot_to_file=false"}));
}

TEST(IoNode, writesEveryKeyInOrder)
{
    EXPECT_EQ(written(fileNode()),
              (Lines{"type=num 7", "pathname=str D:\\plots", "allsysvalid=true", "plot_to_file=true"}));
}

TEST(IoNode, withoutTheLastKeyItFailsAndKeepsWhatItRead)
{
    auto block = blocks::make(OD_T("io"));
    ASSERT_TRUE(fileNode().write(*block));
    GmIoNode node;
    EXPECT_FALSE(node.init(*blocks::without(*block, OD_T("plot_to_file"))));
    EXPECT_EQ(node.m_type, 7);
    EXPECT_EQ(node.m_pathname, OD_T("D:\\plots"));
    EXPECT_TRUE(node.m_allsysvalid);
    EXPECT_FALSE(node.m_plot_to_file);
}

TEST(IoNode, aCopyHasAllFieldsAndIsItsOwn)
{
    GmIoNode node = fileNode();
    const GmIoNode copy = node;
    node.m_pathname = OD_T("elsewhere");
    EXPECT_EQ(written(copy), written(fileNode()));
}
