// Blocks that were built and blocks that were read behave alike.

#include "TreeTools.h"

#include <gtest/gtest.h>

namespace
{
OdSharedPtr<CPItem> shared(CPItem* item)
{
    return OdSharedPtr<CPItem>(item);
}

// The same block, built in memory or read from a file.
class AnyBlock : public testing::TestWithParam<bool>
{
protected:
    const CPBlock& read(std::string_view text)
    {
        EXPECT_TRUE(m_parser.parse(plainFile(text))) << m_parser.reason();
        const CPBlock& root = *m_parser.root();
        if (GetParam())
            return root;
        for (unsigned i = 0; i < root.size(); ++i)
            m_built.add(builtItem(root, i));
        return m_built;
    }

    static OdSharedPtr<CPItem> builtItem(const CPBlock& block, unsigned i)
    {
        const OdString name = block.nameAt(i);
        switch (block.kindAt(i))
        {
        case CPItem::eBlock:
            return shared(new CPBlock(name));
        case CPItem::eBool:
            return shared(new CPBool(name, block.flagAt(i)));
        case CPItem::eBin:
            return shared(new CPBin(name, block.textAt(i)));
        case CPItem::eStr:
            return shared(new CPStr(name, block.textAt(i)));
        default:
            return shared(new CPNum(name, block.textAt(i).view()));
        }
    }

    CPIAParser m_parser;
    CPBlock m_built{OD_T("")};
};

INSTANTIATE_TEST_SUITE_P(CPBlock, AnyBlock, testing::Bool(),
                         [](const auto& test) { return test.param ? "read" : "built"; });
} // namespace

TEST(CPItem, kindNumbersAreFixed)
{
    EXPECT_EQ(CPItem::eBin, 0);
    EXPECT_EQ(CPItem::eBlock, 1);
    EXPECT_EQ(CPItem::eBool, 2);
    EXPECT_EQ(CPItem::eStr, 3);
    EXPECT_EQ(CPItem::eNum, 4);
    EXPECT_EQ(CPBin(OD_T(""), OD_T("")).type(), CPItem::eBin);
    EXPECT_EQ(CPBlock(OD_T("")).type(), CPItem::eBlock);
    EXPECT_EQ(CPBool(OD_T(""), false).type(), CPItem::eBool);
    EXPECT_EQ(CPStr(OD_T(""), OD_T("")).type(), CPItem::eStr);
    EXPECT_EQ(CPNum(OD_T(""), 0).type(), CPItem::eNum);
}

TEST(CPItem, keepsNameAndValue)
{
    EXPECT_EQ(CPNum(OD_T("n"), -12).text(), OD_T("-12"));
    EXPECT_EQ(CPNum(OD_T("n"), 600.0, 1).text(), OD_T("600.0"));
    EXPECT_EQ(CPNum(OD_T("n"), OD_T(" 7 apples ")).text(), OD_T(" 7 apples "));
    EXPECT_EQ(CPBin(OD_T("b"), OD_T("00ff")).text(), OD_T("00ff"));
    EXPECT_EQ(CPStr(OD_T("s"), OD_T("x")).name(), OD_T("s"));
    EXPECT_TRUE(CPBool(OD_T("t"), true).value());
}

TEST_P(AnyBlock, gettersReturnEveryKind)
{
    const CPBlock& block = read("s=\"text\nt=TRUE\nf=FALSE\ni=-12\nd=0.25\nb=#00\n");
    EXPECT_EQ(strOf(block, OD_T("s")), OD_T("text"));
    EXPECT_EQ(boolOf(block, OD_T("t")), true);
    EXPECT_EQ(boolOf(block, OD_T("f")), false);
    EXPECT_EQ(intOf(block, OD_T("i")), -12);
    EXPECT_EQ(dblOf(block, OD_T("i")), -12.0) << "an integer can be read as a double too";
    EXPECT_EQ(dblOf(block, OD_T("d")), 0.25);
}

TEST_P(AnyBlock, aFailingGetterLeavesItsOutputUntouched)
{
    const CPBlock& block =
        read("str=\"a text\nbool=TRUE\nno number=12 apples\nbin=#00FF\nblock{\n}\nlarge=4294967296\n");
    for (const OdChar* name : {OD_T("missing"), OD_T(""), OD_T("bin"), OD_T("block"), OD_T("bool"), OD_T("str"),
                               OD_T("no number"), OD_T("large")})
    {
        const OdStringView key(name);
        SCOPED_TRACE(OdString(key));
        EXPECT_EQ(strOf(block, key).has_value(), key == OD_T("str"));
        EXPECT_EQ(intOf(block, key), std::nullopt);
        EXPECT_EQ(dblOf(block, key).has_value(), key == OD_T("large"));
        EXPECT_EQ(boolOf(block, key).has_value(), key == OD_T("bool"));
    }
    EXPECT_EQ(dblOf(block, OD_T("large")), 4294967296.0);
}

TEST_P(AnyBlock, findComparesNameAndKind)
{
    const CPBlock& block = read("block{\n}\nstr=\"a text\n");
    EXPECT_EQ(block.find(OD_T("block"), CPItem::eBlock), block.data(0));
    EXPECT_EQ(block.find(OD_T("str"), CPItem::eStr), block.data(1));
    EXPECT_TRUE(block.find(OD_T("str"), CPItem::eBlock).isNull());
    EXPECT_TRUE(block.find(OD_T("missing"), CPItem::eBlock).isNull());
}

TEST_P(AnyBlock, namesAreComparedExactly)
{
    const CPBlock& block = read("Size{\n}\na\\U+0000b=5\n");
    for (const OdChar* other : {OD_T("size"), OD_T("Size "), OD_T("Siz")})
        EXPECT_TRUE(block.find(other, CPItem::eBlock).isNull()) << OdString(other);
    EXPECT_FALSE(block.find(OD_T("Size"), CPItem::eBlock).isNull());
    EXPECT_EQ(intOf(block, OD_T("a")), std::nullopt);
    EXPECT_EQ(intOf(block, OdStringView(OD_T("a\0b"), 3)), 5);
}

TEST_P(AnyBlock, theFirstChildOfNameAndKindWins)
{
    const CPBlock& block = read("x=\"text\ny=5\nx=1\nx=2\nx{\n}\nx{\na=1\n}\n");
    EXPECT_EQ(intOf(block, OD_T("y")), 5);
    EXPECT_EQ(intOf(block, OD_T("x")), 1);
    EXPECT_EQ(block.find(OD_T("x"), CPItem::eBlock), block.data(4));
    EXPECT_TRUE(block.find(OD_T("x"), CPItem::eBool).isNull());
}

TEST_P(AnyBlock, aMalformedFirstNumberHidesTheNextOne)
{
    EXPECT_EQ(intOf(read("x=\nx=2\n"), OD_T("x")), std::nullopt);
}

TEST_P(AnyBlock, similarNamesAreDistinct)
{
    // Equal length, first, middle and last unit.
    const CPBlock& block = read("aXbYc=1\naYbXc=2\na\\U+0158bYc=3\n");
    EXPECT_EQ(intOf(block, OD_T("aYbXc")), 2);
    EXPECT_EQ(intOf(block, OD_T("a\u0158bYc")), 3);
    EXPECT_EQ(intOf(block, OD_T("aZbYc")), std::nullopt);
    // The low byte of the last unit is an ASCII letter.
    EXPECT_EQ(intOf(block, OD_T("aXbY\u0163")), std::nullopt);
}

// Each unit of a name counts with all its bits: the low byte of U+0141 is "A".
TEST_P(AnyBlock, namesWithEqualLowBytesDiffer)
{
    const CPBlock& block = read("AAAAA=1\n");
    const OdString name(OD_T("AAAAA"));
    EXPECT_EQ(intOf(block, name), 1);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(intOf(block, name.left(i) + OD_T("\u0141") + name.mid(i + 1)), std::nullopt) << i;
}

TEST_P(AnyBlock, dataReturnsTheSameItemEachTime)
{
    const CPBlock& root = read("a=1\nb{\n}\n");
    EXPECT_EQ(root.size(), 2U);
    const auto first = root.data(0);
    EXPECT_EQ(root.data(0), first);
    const auto block = root.find(OD_T("b"), CPItem::eBlock);
    EXPECT_EQ(root.data(1), block);
    EXPECT_EQ(block->type(), CPItem::eBlock);
    EXPECT_EQ(block->name(), OD_T("b"));
    EXPECT_TRUE(root.data(2).isNull());
    EXPECT_TRUE(root.data(~0U).isNull());
}

TEST(CPBlock, dataReturnsTheAddedItemsInOrder)
{
    const auto item = shared(new CPNum(OD_T("x"), 1));
    CPBlock block(OD_T("b"));
    EXPECT_EQ(block.size(), 0U);
    EXPECT_TRUE(block.add(item));
    EXPECT_TRUE(block.add(shared(new CPNum(OD_T("y"), 2))));
    EXPECT_EQ(block.size(), 2U);
    EXPECT_EQ(block.data(0), item);
    EXPECT_EQ(block.data(1)->name(), OD_T("y"));
}

TEST(CPBlock, aNullItemIsRefused)
{
    CPBlock block(OD_T("b"));
    EXPECT_FALSE(block.add(nullptr));
    EXPECT_EQ(block.size(), 0U);
}

TEST(CPBlock, itemsOutliveTheirBlock)
{
    OdSharedPtr<CPItem> item;
    {
        CPBlock block(OD_T("b"));
        addTo<CPStr>(block, OD_T("x"), OD_T("still here"));
        item = block.data(0);
        EXPECT_EQ(item.refCount(), 2);
    }
    EXPECT_EQ(item.refCount(), 1);
    EXPECT_EQ(static_cast<const CPStr&>(*item).text(), OD_T("still here"));
}
