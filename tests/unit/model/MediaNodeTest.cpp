#include "GarmPC3Editor/GmMediaNode.h"
#include "tests/support/Blocks.h"
#include "tests/support/RecordedAsserts.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
using Lines = std::vector<std::string>;
using blocks::written;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

GmMediaNode fullNode()
{
    GmMediaNode node;
    node.m_selection_method = 1;
    node.m_type = OD_T("sheet");
    node.m_dm_orientation = 2;
    node.m_actual_printable_bounds_llx = 1.25;
    node.m_actual_printable_bounds_lly = 2.25;
    node.m_actual_printable_bounds_urx = 3.25;
    node.m_actual_printable_bounds_ury = 4.25;
    node.m_number_of_copies = 5;
    GmSizeNode& size = node.m_size;
    size.m_name = OD_T("A3 ");
    size.m_group = 6;
    size.m_landscape_mode = true;
    size.m_longplot_reduction = 0.5;
    size.m_dm_scale = 50;
    GmMediaDescriptionNode& paper = size.m_media_description;
    paper.m_printable_bounds_llx = 11.25;
    paper.m_printable_bounds_lly = 12.25;
    paper.m_printable_bounds_urx = 13.25;
    paper.m_printable_bounds_ury = 14.25;
    paper.m_printable_area = 15.25;
    paper.m_dimensional = false;
    paper.m_media_bounds.m_urx = 21.25;
    paper.m_media_bounds.m_ury = 22.25;
    node.m_destination = new GmDestinationNode;
    node.m_destination->m_name = OD_T("Default");
    node.m_destination->m_collating_type = 1;
    node.m_destination->m_collating_name = OD_T("Regular");
    return node;
}

const Lines fullLines = {"selection_method=num 1",
                         "type=str sheet",
                         "dm_orientation=num 2",
                         "actual_printable_bounds_llx=num 1.25",
                         "actual_printable_bounds_lly=num 2.25",
                         "actual_printable_bounds_urx=num 3.25",
                         "actual_printable_bounds_ury=num 4.25",
                         "number_of_copies=num 5",
                         "size{",
                         " name=str A3 ",
                         " group=num 6",
                         " landscape_mode=true",
                         " longplot_reduction=num 0.5",
                         " dm_scale=num 50",
                         " media_description{",
                         "  printable_bounds_llx=num 11.25",
                         "  printable_bounds_lly=num 12.25",
                         "  printable_bounds_urx=num 13.25",
                         "  printable_bounds_ury=num 14.25",
                         "  printable_area=num 15.25",
                         "  dimensional=false",
                         "  media_bounds{",
                         "   urx=num 21.25",
                         "   ury=num 22.25",
                         "destination{",
                         " name=str Default",
                         " collating_type=num 1",
                         " collating_name=str Regular"};

OdSharedPtr<CPBlock> fullBlock()
{
    auto block = blocks::make(OD_T("media"));
    EXPECT_TRUE(fullNode().write(*block));
    return block;
}

// The block with the destination lacking a key.
OdSharedPtr<CPBlock> blockWithBadDestination(OdStringView missing)
{
    const auto block = fullBlock();
    const auto destination = block->find(OD_T("destination"), CPItem::eBlock);
    return blocks::with(*block, OD_T("destination"), blocks::without(blocks::asBlock(*destination), missing));
}

OdSharedPtr<CPBlock> sizeBlock(const GmSizeNode& node)
{
    auto block = blocks::make(OD_T("size"));
    EXPECT_TRUE(node.write(*block));
    return block;
}

// A node whose geometry can be printed on.
GmMediaNode printableNode()
{
    GmMediaNode node = fullNode();
    EXPECT_FALSE(node.emptyBounds());
    return node;
}

// Every length that emptyBounds looks at.
std::vector<double*> lengthsOf(GmMediaNode& node)
{
    auto& paper = node.m_size.m_media_description;
    return {&node.m_actual_printable_bounds_llx, &node.m_actual_printable_bounds_lly,
            &node.m_actual_printable_bounds_urx, &node.m_actual_printable_bounds_ury,
            &paper.m_printable_bounds_llx,       &paper.m_printable_bounds_lly,
            &paper.m_printable_bounds_urx,       &paper.m_printable_bounds_ury,
            &paper.m_media_bounds.m_urx,         &paper.m_media_bounds.m_ury};
}
} // namespace

TEST(MediaNode, aFullNodeWritesEveryKeyInOrder)
{
    EXPECT_EQ(written(fullNode()), fullLines);
}

TEST(MediaNode, aFreshNodeHasTheDefaultsAndNoUnsetKeys)
{
    const GmMediaNode node;
    EXPECT_EQ(node.m_selection_method, 2);
    EXPECT_EQ(node.m_dm_orientation, 1);
    EXPECT_EQ(node.m_number_of_copies, 1);
    EXPECT_TRUE(node.m_destination.isNull());
    EXPECT_EQ(node.m_size.m_longplot_reduction, -1.0);
    EXPECT_EQ(node.m_size.m_dm_scale, 100);
    EXPECT_TRUE(node.m_size.m_media_description.m_dimensional);

    EXPECT_EQ(written(node), (Lines{"selection_method=num 2",
                                    "type=str ",
                                    "dm_orientation=num 1",
                                    "actual_printable_bounds_llx=num 0.0",
                                    "actual_printable_bounds_lly=num 0.0",
                                    "actual_printable_bounds_urx=num 0.0",
                                    "actual_printable_bounds_ury=num 0.0",
                                    "number_of_copies=num 1",
                                    "size{",
                                    " name=str ",
                                    " group=num 0",
                                    " landscape_mode=false",
                                    " media_description{",
                                    "  printable_bounds_llx=num 0.0",
                                    "  printable_bounds_lly=num 0.0",
                                    "  printable_bounds_urx=num 0.0",
                                    "  printable_bounds_ury=num 0.0",
                                    "  printable_area=num 0.0",
                                    "  dimensional=true",
                                    "  media_bounds{",
                                    "   urx=num 0.0",
                                    "   ury=num 0.0"}));
}

TEST(MediaNode, aFreshDestinationIsNamelessAndDoesNotCollate)
{
    const GmDestinationNode node;
    EXPECT_TRUE(node.m_name.isEmpty());
    EXPECT_EQ(node.m_collating_type, 0);
    EXPECT_TRUE(node.m_collating_name.isEmpty());
}

TEST(MediaNode, readsEveryKeyIntoItsField)
{
    GmMediaNode node;
    ASSERT_TRUE(node.init(*fullBlock()));
    EXPECT_EQ(written(node), fullLines);
}

TEST(MediaNode, aBadDestinationBecomesNoneAndIsNotWrittenBack)
{
    for (OdStringView key : {OD_T("name"), OD_T("collating_type"), OD_T("collating_name")})
    {
        GmMediaNode node = fullNode();
        ASSERT_TRUE(node.init(*blockWithBadDestination(key)));
        EXPECT_TRUE(node.m_destination.isNull());
        EXPECT_EQ(written(node), Lines(fullLines.begin(), fullLines.end() - 4));
    }
}

TEST(MediaNode, withoutDestinationTheOldOneIsKept)
{
    GmMediaNode node;
    node.m_destination = new GmDestinationNode;
    const auto old = node.m_destination;
    ASSERT_TRUE(node.init(*blocks::without(*fullBlock(), OD_T("destination"))));
    EXPECT_EQ(node.m_destination, old);
}

TEST(MediaNode, readingAgainReplacesTheDestinationAndLeavesCopiesAlone)
{
    GmMediaNode node;
    ASSERT_TRUE(node.init(*fullBlock()));
    const GmMediaNode copy = node;
    ASSERT_TRUE(node.init(*fullBlock()));
    EXPECT_FALSE(node.m_destination == copy.m_destination);
    EXPECT_EQ(copy.m_destination.refCount(), 1);
}

TEST(MediaNode, withoutMediaBoundsTheWholeBlockFails)
{
    const auto size = sizeBlock(fullNode().m_size);
    const auto paper = size->find(OD_T("media_description"), CPItem::eBlock);
    const auto block = blocks::with(
        *fullBlock(), OD_T("size"),
        blocks::with(*size, OD_T("media_description"), blocks::without(blocks::asBlock(*paper), OD_T("media_bounds"))));
    GmMediaNode node;
    EXPECT_FALSE(node.init(*block));
    EXPECT_EQ(node.m_number_of_copies, 5);
    EXPECT_EQ(node.m_size.m_name, OD_T("A3 "));
    EXPECT_EQ(node.m_size.m_media_description.m_printable_area, 15.25);
    EXPECT_TRUE(node.m_destination.isNull());
}

TEST(MediaNode, copiesShareTheDestinationAndTheLastOneFreesIt)
{
    OdSharedPtr<GmDestinationNode> destination;
    {
        GmMediaNode node = fullNode();
        GmMediaNode copy = node;
        GmMediaNode assigned;
        assigned = node;
        copy.m_destination->setCollating(false);
        EXPECT_EQ(node.m_destination->m_collating_name, OD_T("None"));
        EXPECT_EQ(assigned.m_destination->m_collating_type, 0);
        destination = node.m_destination;
        EXPECT_EQ(destination.refCount(), 4);
    }
    EXPECT_EQ(destination.refCount(), 1);
}

TEST(SizeNode, unsetReductionAndScaleAreNotWritten)
{
    GmSizeNode node = fullNode().m_size;
    node.m_longplot_reduction = -1.0;
    node.m_dm_scale = 100;
    const auto block = sizeBlock(node);
    EXPECT_EQ(block->size(), 4U);
    GmSizeNode fresh;
    ASSERT_TRUE(fresh.init(*block));
    EXPECT_EQ(fresh.m_longplot_reduction, -1.0);
    EXPECT_EQ(fresh.m_dm_scale, 100);
}

TEST(SizeNode, aScaleOf50IsWritten)
{
    GmSizeNode node;
    node.m_dm_scale = 50;
    std::int32_t scale = 0;
    EXPECT_TRUE(sizeBlock(node)->getInt(scale, OD_T("dm_scale")));
    EXPECT_EQ(scale, 50);
}

TEST(SizeNode, aZeroScaleAndAZeroReductionAreWritten)
{
    GmSizeNode node;
    node.m_dm_scale = 0;
    node.m_longplot_reduction = 0.0;
    GmSizeNode back;
    ASSERT_TRUE(back.init(*sizeBlock(node)));
    EXPECT_EQ(back.m_dm_scale, 0);
    EXPECT_EQ(back.m_longplot_reduction, 0.0);
}

TEST(SizeNode, aReductionThatIsNoNumberIsWrittenAndReadBack)
{
    GmSizeNode node;
    node.m_longplot_reduction = notANumber;
    GmSizeNode back;
    ASSERT_TRUE(back.init(*sizeBlock(node)));
    EXPECT_NE(back.m_longplot_reduction, back.m_longplot_reduction);
}

TEST(SizeNode, setNameTellsWhetherTheNameChangedByItsExactSpelling)
{
    GmSizeNode node;
    EXPECT_TRUE(node.setName(OD_T("A4")));
    EXPECT_FALSE(node.setName(OD_T("A4")));
    EXPECT_TRUE(node.setName(OD_T("a4")));
    EXPECT_EQ(node.m_name, OD_T("a4"));
    EXPECT_TRUE(node.setName(OD_T("")));
    EXPECT_TRUE(node.m_name.isEmpty());
}

TEST(SizeNode, setNameTakesAViewOfItsOwnName)
{
    GmSizeNode node;
    node.setName(OD_T("A name that is too long to be kept inside the text itself"));
    const OdString before = node.m_name;
    EXPECT_FALSE(node.setName(node.m_name.c_str()));
    EXPECT_EQ(node.m_name, before);
}

TEST(SizeNode, aNullNameIsAssertedAndChangesNothing)
{
    GmSizeNode node;
    node.m_name = OD_T("A4");
    const RecordedAsserts asserts;
    EXPECT_FALSE(node.setName(nullptr));
    EXPECT_EQ(node.m_name, OD_T("A4"));
    EXPECT_EQ(asserts.reports(), (Lines{"name | GarmPC3Editor/GmPlotCfg3"}));
}

TEST(DestinationNode, collatingTwiceChangesOnce)
{
    GmDestinationNode node;
    EXPECT_TRUE(node.setCollating(true));
    EXPECT_EQ(node.m_collating_name, OD_T("Regular"));
    EXPECT_FALSE(node.setCollating(true));
    EXPECT_EQ(node.m_collating_name, OD_T("Regular"));
    EXPECT_EQ(node.m_collating_type, 1);
}

TEST(DestinationNode, theTextIsRewrittenWithoutAChange)
{
    GmDestinationNode node;
    node.m_collating_name = OD_T("something else");
    EXPECT_FALSE(node.setCollating(false));
    EXPECT_EQ(node.m_collating_name, OD_T("None"));
}

// A file may have any type; it must never become an index.
TEST(DestinationNode, aStrangeTypeIsKeptUntilItIsSet)
{
    GmDestinationNode node;
    node.m_collating_type = 7;
    node.m_collating_name = OD_T("odd");
    auto block = blocks::make(OD_T("destination"));
    ASSERT_TRUE(node.write(*block));
    GmDestinationNode back;
    ASSERT_TRUE(back.init(*block));
    EXPECT_EQ(back.m_collating_type, 7);
    EXPECT_EQ(back.m_collating_name, OD_T("odd"));
    EXPECT_TRUE(back.setCollating(true));
    EXPECT_EQ(back.m_collating_type, 1);
}

TEST(MediaNode, aFreshNodeHasEmptyBounds)
{
    EXPECT_TRUE(GmMediaNode().emptyBounds());
}

TEST(MediaNode, eachLengthBelowTheLimitMakesTheBoundsEmpty)
{
    GmMediaNode node = printableNode();
    for (std::size_t i = 0; i < lengthsOf(node).size(); ++i)
    {
        SCOPED_TRACE(i);
        for (double empty : {0.0, 0.00009999, -5.0, -std::numeric_limits<double>::infinity()})
        {
            GmMediaNode other = node;
            *lengthsOf(other)[i] = empty;
            EXPECT_TRUE(other.emptyBounds()) << empty;
        }
        for (double usable : {0.0001, 1.0, notANumber})
        {
            GmMediaNode other = node;
            *lengthsOf(other)[i] = usable;
            EXPECT_FALSE(other.emptyBounds()) << usable;
        }
    }
}

TEST(MediaNode, aTooSmallAreaMakesTheBoundsEmpty)
{
    GmMediaNode node = printableNode();
    double& area = node.m_size.m_media_description.m_printable_area;
    area = 0.9e-8;
    EXPECT_TRUE(node.emptyBounds());
    area = 1e-8;
    EXPECT_FALSE(node.emptyBounds());
    area = notANumber;
    EXPECT_FALSE(node.emptyBounds());
}

TEST(MediaNode, swappingExchangesTheAxesAndKeepsTheArea)
{
    GmMediaNode node = fullNode();
    node.swapBounds();
    const auto& paper = node.m_size.m_media_description;
    EXPECT_EQ(node.m_actual_printable_bounds_llx, 2.25);
    EXPECT_EQ(node.m_actual_printable_bounds_lly, 1.25);
    EXPECT_EQ(node.m_actual_printable_bounds_urx, 4.25);
    EXPECT_EQ(node.m_actual_printable_bounds_ury, 3.25);
    EXPECT_EQ(paper.m_printable_bounds_llx, 12.25);
    EXPECT_EQ(paper.m_printable_bounds_lly, 11.25);
    EXPECT_EQ(paper.m_printable_bounds_urx, 14.25);
    EXPECT_EQ(paper.m_printable_bounds_ury, 13.25);
    EXPECT_EQ(paper.m_printable_area, 15.25);
    EXPECT_EQ(paper.m_media_bounds.m_urx, 22.25);
    EXPECT_EQ(paper.m_media_bounds.m_ury, 21.25);

    node.swapBounds();
    EXPECT_EQ(written(node), fullLines);
}

// All digits of a length: the number must be the same when read back.
TEST(GmMediaNode, lengthsAreWrittenWithAllTheirDigits)
{
    GmMediaNode node;
    node.m_actual_printable_bounds_llx = 4.233333333333333;
    node.m_actual_printable_bounds_lly = 0.1;
    node.m_actual_printable_bounds_urx = 201.50666666666666;
    node.m_actual_printable_bounds_ury = 286.85066666666665;
    node.m_size.m_longplot_reduction = 0.123456;
    GmMediaDescriptionNode& paper = node.m_size.m_media_description;
    paper.m_printable_bounds_llx = 1.0 / 3;
    paper.m_printable_bounds_lly = 2.0 / 3;
    paper.m_printable_bounds_urx = 123456.789;
    paper.m_printable_bounds_ury = 1e-7;
    paper.m_printable_area = 55585.84444444444;
    paper.m_media_bounds.m_urx = 209.97333333333333;
    paper.m_media_bounds.m_ury = 297.01066666666668;
    EXPECT_EQ(written(node), (Lines{"selection_method=num 2",
                                    "type=str ",
                                    "dm_orientation=num 1",
                                    "actual_printable_bounds_llx=num 4.233333333333333",
                                    "actual_printable_bounds_lly=num 0.1",
                                    "actual_printable_bounds_urx=num 201.50666666666666",
                                    "actual_printable_bounds_ury=num 286.85066666666665",
                                    "number_of_copies=num 1",
                                    "size{",
                                    " name=str ",
                                    " group=num 0",
                                    " landscape_mode=false",
                                    " longplot_reduction=num 0.123456",
                                    " media_description{",
                                    "  printable_bounds_llx=num 0.3333333333333333",
                                    "  printable_bounds_lly=num 0.6666666666666666",
                                    "  printable_bounds_urx=num 123456.789",
                                    "  printable_bounds_ury=num 1e-07",
                                    "  printable_area=num 55585.84444444444",
                                    "  dimensional=true",
                                    "  media_bounds{",
                                    "   urx=num 209.97333333333333",
                                    "   ury=num 297.0106666666667"}));
}
