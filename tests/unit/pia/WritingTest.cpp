// The exact text of a tree, and the trees that are refused because they could not be read back.

#include "TreeTools.h"
#include "pia_tree/CPIAOutput.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
std::string written(const CPBlock& root)
{
    std::string file;
    CPIAOutput output;
    if (!output.writeToMemory(root, file, pia::Form::plain))
        return std::string("refused: ") + output.reason();
    EXPECT_EQ(file.substr(0, plainFirstLine.size()), plainFirstLine);
    return file.substr(plainFirstLine.size());
}

template <class Item, class... Value>
std::string line(Value&&... value)
{
    CPBlock root(OD_T(""));
    addTo<Item>(root, std::forward<Value>(value)...);
    return written(root);
}

class StrangeItem : public CPItem
{
public:
    StrangeItem() : CPItem(static_cast<EType>(5), OdStringView(OD_T("strange"))) {}
};
} // namespace

TEST(Writing, anEmptyRootIsAnEmptyText)
{
    EXPECT_EQ(written(CPBlock(OD_T(""))), "");
    EXPECT_EQ(describeFile(plainFile("")), "");
}

TEST(Writing, everyKindHasItsLine)
{
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("text"))), "s=\"text\n");
    EXPECT_EQ((line<CPBool>(OD_T("t"), true)), "t=TRUE\n");
    EXPECT_EQ((line<CPBool>(OD_T("f"), false)), "f=FALSE\n");
    EXPECT_EQ((line<CPBin>(OD_T("b"), OD_T("00FF"))), "b=#00FF\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), -5)), "n=-5\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), 600.0, 1)), "n=600.0\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), 0.5, -1)), "n=0.5\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("any text"))), "n=any text\n");
    EXPECT_EQ((line<CPBlock>(OD_T("x"))), "x{\n}\n");
}

TEST(Writing, oneBlankPerLevel)
{
    const OdSharedPtr<CPItem> inner(new CPBlock(OD_T("inner")));
    addTo<CPNum>(static_cast<CPBlock&>(*inner), OD_T("deep"), 2);
    const OdSharedPtr<CPItem> outer(new CPBlock(OD_T("outer")));
    addTo<CPNum>(static_cast<CPBlock&>(*outer), OD_T("a"), 1);
    static_cast<CPBlock&>(*outer).add(inner);
    CPBlock root(OD_T(""));
    root.add(outer);
    addTo<CPNum>(root, OD_T("last"), 3);
    EXPECT_EQ(written(root), "outer{\n a=1\n inner{\n  deep=2\n }\n}\nlast=3\n");
}

TEST(Writing, unitsOutsidePrintableAsciiAreEscaped)
{
    const OdChar units[] = {0x00, 0x09, 0x0A, 0x0D, 0x1F, 0x20, 0x7E, 0x7F, 0xE4, 0xD800, 0xFFFF, 'x'};
    EXPECT_EQ((line<CPStr>(OD_T("s"), OdStringView(units, std::size(units)))),
              "s=\"\\U+0000\\U+0009\\U+000A\\U+000D\\U+001F ~\\U+007F\\U+00E4\\U+D800\\U+FFFFx\n");
}

TEST(Writing, onlyABackslashBeforeAnEscapeIsEscaped)
{
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("\\\\server\\Up\\U+004"))), "s=\"\\\\server\\Up\\U+004\n");
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("\\U+00e4"))), "s=\"\\U+005CU+00e4\n");
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("\\\\U+0041"))), "s=\"\\\\U+005CU+0041\n");
    EXPECT_EQ((line<CPNum>(OD_T("\\U+0041"), OD_T("\\U+0041"))), "\\U+005CU+0041=\\U+005CU+0041\n");
    // The escape of the next unit must not complete this one.
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("\\U+00\u00E4"))), "s=\"\\U+00\\U+00E4\n");
}

TEST(Writing, namesEscapeCharactersOfTheGrammar)
{
    EXPECT_EQ((line<CPNum>(OD_T("a=b{c}d\"e"), 1)), "a\\U+003Db\\U+007Bc\\U+007Dd\\U+0022e=1\n");
    EXPECT_EQ((line<CPNum>(OD_T("  a b "), 1)), "\\U+0020\\U+0020a b\\U+0020=1\n");
    EXPECT_EQ((line<CPNum>(OD_T(" "), 1)), "\\U+0020=1\n");
    EXPECT_EQ((line<CPBlock>(OD_T("  "))), "\\U+0020\\U+0020{\n}\n");
    EXPECT_EQ((line<CPNum>(OD_T(""), 1)), "=1\n");
    EXPECT_EQ((line<CPBlock>(OD_T(""))), "{\n}\n");
    EXPECT_EQ((line<CPNum>(OD_T("#a"), 1)), "#a=1\n");
}

TEST(Writing, valuesEscapeTheirLastBlankOnly)
{
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("  A4  "))), "s=\"  A4 \\U+0020\n");
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T(" "))), "s=\"\\U+0020\n");
    EXPECT_EQ((line<CPBin>(OD_T("b"), OD_T("00 "))), "b=#00\\U+0020\n");
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("={}\"#"))), "s=\"={}\"#\n");
    EXPECT_EQ((line<CPStr>(OD_T("s"), OD_T("\u00E4 "))), "s=\"\\U+00E4\\U+0020\n");
}

TEST(Writing, numbersThatLookLikeOtherKindsAreEscaped)
{
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("TRUE"))), "n=\\U+0054RUE\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("FALSE"))), "n=\\U+0046ALSE\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("TRUE "))), "n=TRUE\\U+0020\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("\"x"))), "n=\\U+0022x\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("#x"))), "n=\\U+0023x\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T(" 5"))), "n=\\U+00205\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T(" "))), "n=\\U+0020\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T("  "))), "n=\\U+0020\\U+0020\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), OD_T(""))), "n=\n");
}

TEST(Writing, nanAndInfinityAreWords)
{
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ((line<CPNum>(OD_T("n"), -Limits::quiet_NaN(), -1)), "n=nan\n");
    EXPECT_EQ((line<CPNum>(OD_T("n"), -Limits::infinity(), -1)), "n=-inf\n");
}

TEST(Writing, treesThatNoFileCanHoldAreRefused)
{
    EXPECT_EQ(written(CPBlock(OD_T("name"))), "refused: the root block has a name, which a file cannot store");

    CPBlock strange(OD_T(""));
    addTo<StrangeItem>(strange);
    EXPECT_EQ(written(strange), "refused: an item is of an unknown kind");
}

TEST(Writing, aRefusedTreeLeavesTheBytesUntouched)
{
    std::string bytes = "poison";
    CPIAOutput output;
    EXPECT_FALSE(output.writeToMemory(CPBlock(OD_T("name")), bytes));
    EXPECT_EQ(bytes, "poison");
    EXPECT_STRNE(output.reason(), "");
    EXPECT_TRUE(output.writeToMemory(CPBlock(OD_T("")), bytes));
    EXPECT_STREQ(output.reason(), "");
}
