#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"

#include <gtest/gtest.h>

namespace
{
constexpr std::int32_t poisonInt = -77;
constexpr double poisonDouble = -7.75;

OdSharedPtr<CPItem> shared(CPItem* item)
{
    return OdSharedPtr<CPItem>(item);
}

// One child of every kind; the name of each is its kind.
void fillWithAllKinds(CPBlock& block)
{
    block.add(shared(new CPBin(OD_T("bin"), OD_T("00FF"))));
    block.add(shared(new CPBlock(OD_T("block"))));
    block.add(shared(new CPBool(OD_T("bool"), true)));
    block.add(shared(new CPStr(OD_T("str"), OD_T("a text"))));
    block.add(shared(new CPNum(OD_T("num"), 600)));
}
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

TEST(CPItem, nameAndValueAreReachable)
{
    EXPECT_EQ(CPNum(OD_T("n"), -12).text(), OD_T("-12"));
    EXPECT_EQ(CPNum(OD_T("n"), 600.0, 1).text(), OD_T("600.0"));
    EXPECT_EQ(CPNum(OD_T("n"), OD_T(" 7 apples ")).text(), OD_T(" 7 apples "));
    EXPECT_EQ(CPBin(OD_T("b"), OD_T("00ff")).text(), OD_T("00ff"));
    EXPECT_EQ(CPStr(OD_T("s"), OD_T("x")).name(), OD_T("s"));
    EXPECT_TRUE(CPBool(OD_T("t"), true).value());
}

TEST(CPBlock, getsWhatWasAdded)
{
    CPBlock block(OD_T("b"));
    fillWithAllKinds(block);

    OdString text;
    std::int32_t number = poisonInt;
    double real = poisonDouble;
    bool flag = false;
    EXPECT_TRUE(block.getStr(text, OD_T("str")));
    EXPECT_EQ(text, OD_T("a text"));
    EXPECT_TRUE(block.getInt(number, OD_T("num")));
    EXPECT_EQ(number, 600);
    EXPECT_TRUE(block.getBool(flag, OD_T("bool")));
    EXPECT_TRUE(flag);
    // An integer is a floating-point number as well.
    EXPECT_TRUE(block.getDbl(real, OD_T("num")));
    EXPECT_EQ(real, 600.0);
}

TEST(CPBlock, aFailingGetterLeavesItsOutputUntouched)
{
    CPBlock block(OD_T("b"));
    fillWithAllKinds(block);
    block.add(shared(new CPNum(OD_T("no number"), OD_T("12 apples"))));

    for (const OdChar* name : {OD_T("missing"), OD_T(""), OD_T("bin"), OD_T("block"), OD_T("bool"), OD_T("str"),
                               OD_T("num"), OD_T("no number")})
    {
        const OdStringView key(name);
        if (key != OD_T("str"))
        {
            OdString text(OD_T("poison"));
            EXPECT_FALSE(block.getStr(text, key));
            EXPECT_EQ(text, OD_T("poison"));
        }
        if (key != OD_T("num"))
        {
            std::int32_t number = poisonInt;
            double real = poisonDouble;
            EXPECT_FALSE(block.getInt(number, key));
            EXPECT_FALSE(block.getDbl(real, key));
            EXPECT_EQ(number, poisonInt);
            EXPECT_EQ(real, poisonDouble);
        }
        if (key != OD_T("bool"))
        {
            for (const bool poison : {false, true})
            {
                bool flag = poison;
                EXPECT_FALSE(block.getBool(flag, key));
                EXPECT_EQ(flag, poison);
            }
        }
    }
}

TEST(CPBlock, findWantsNameAndKind)
{
    CPBlock block(OD_T("b"));
    fillWithAllKinds(block);

    EXPECT_EQ(block.find(OD_T("block"), CPItem::eBlock), block.data(1));
    EXPECT_EQ(block.find(OD_T("str"), CPItem::eStr), block.data(3));
    EXPECT_TRUE(block.find(OD_T("str"), CPItem::eBlock).isNull());
    EXPECT_TRUE(block.find(OD_T("missing"), CPItem::eBlock).isNull());
}

TEST(CPBlock, namesAreComparedExactly)
{
    CPBlock block(OD_T("b"));
    block.add(shared(new CPBlock(OD_T("Size"))));
    EXPECT_TRUE(block.find(OD_T("size"), CPItem::eBlock).isNull());
    EXPECT_TRUE(block.find(OD_T("Size "), CPItem::eBlock).isNull());
    EXPECT_TRUE(block.find(OD_T("Siz"), CPItem::eBlock).isNull());
    EXPECT_FALSE(block.find(OD_T("Size"), CPItem::eBlock).isNull());

    const OdStringView withNul(OD_T("a\0b"), 3);
    block.add(shared(new CPNum(withNul, 5)));
    std::int32_t number = poisonInt;
    EXPECT_FALSE(block.getInt(number, OD_T("a")));
    EXPECT_TRUE(block.getInt(number, withNul));
    EXPECT_EQ(number, 5);
}

TEST(CPBlock, theFirstChildOfNameAndKindWins)
{
    CPBlock block(OD_T("b"));
    block.add(shared(new CPStr(OD_T("x"), OD_T("text"))));
    block.add(shared(new CPNum(OD_T("x"), 1)));
    block.add(shared(new CPNum(OD_T("x"), 2)));
    block.add(shared(new CPBlock(OD_T("x"))));
    block.add(shared(new CPBlock(OD_T("x"))));

    std::int32_t number = poisonInt;
    EXPECT_TRUE(block.getInt(number, OD_T("x")));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(block.find(OD_T("x"), CPItem::eBlock), block.data(3));
}

TEST(CPBlock, theFirstNumberOfANameDecidesEvenWhenItIsNone)
{
    CPBlock block(OD_T("b"));
    block.add(shared(new CPNum(OD_T("x"), OD_T(""))));
    block.add(shared(new CPNum(OD_T("x"), 2)));
    std::int32_t number = poisonInt;
    EXPECT_FALSE(block.getInt(number, OD_T("x")));
    EXPECT_EQ(number, poisonInt);
}

TEST(CPBlock, dataGivesTheSharedItemsInOrder)
{
    const auto item = shared(new CPNum(OD_T("x"), 1));
    CPBlock block(OD_T("b"));
    EXPECT_EQ(block.size(), 0U);
    EXPECT_TRUE(block.add(item));
    EXPECT_TRUE(block.add(shared(new CPNum(OD_T("y"), 2))));
    EXPECT_EQ(block.size(), 2U);
    EXPECT_EQ(block.data(0), item);
    EXPECT_EQ(block.data(1)->name(), OD_T("y"));
    EXPECT_TRUE(block.data(2).isNull());
    EXPECT_TRUE(block.data(~0U).isNull());
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
        block.add(shared(new CPStr(OD_T("x"), OD_T("still here"))));
        item = block.data(0);
        EXPECT_EQ(item.refCount(), 2);
    }
    EXPECT_EQ(item.refCount(), 1);
    EXPECT_EQ(static_cast<const CPStr&>(*item).text(), OD_T("still here"));
}
