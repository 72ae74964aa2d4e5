// Blocks that were read behave like blocks that were built.

#include "TreeTools.h"

#include <gtest/gtest.h>

namespace
{
class ParsedBlock : public testing::Test
{
protected:
    const CPBlock& read(std::string_view text)
    {
        EXPECT_TRUE(m_parser.parse(plainFile(text))) << m_parser.reason();
        return *m_parser.root();
    }

    CPIAParser m_parser;
};
} // namespace

TEST_F(ParsedBlock, gettersReadEveryKind)
{
    const CPBlock& root = read("s=\"text\nt=TRUE\nf=FALSE\ni=-12\nd=0.25\nb=#00\n");
    OdString text;
    bool yes = false;
    bool no = true;
    std::int32_t number = 0;
    double real = 0.0;
    EXPECT_TRUE(root.getStr(text, OD_T("s")));
    EXPECT_TRUE(root.getBool(yes, OD_T("t")));
    EXPECT_TRUE(root.getBool(no, OD_T("f")));
    EXPECT_TRUE(root.getInt(number, OD_T("i")));
    EXPECT_TRUE(root.getDbl(real, OD_T("d")));
    EXPECT_EQ(text, OD_T("text"));
    EXPECT_TRUE(yes);
    EXPECT_FALSE(no);
    EXPECT_EQ(number, -12);
    EXPECT_EQ(real, 0.25);
}

TEST_F(ParsedBlock, aFailingGetterLeavesItsOutputUntouched)
{
    const CPBlock& root = read("s=\"text\nt=TRUE\nn=12 apples\nb=#00\nx{\n}\nlarge=4294967296\n");
    for (const OdChar* key : {OD_T("missing"), OD_T(""), OD_T("b"), OD_T("x"), OD_T("n"), OD_T("t"), OD_T("s")})
    {
        std::int32_t number = -77;
        double real = -7.75;
        EXPECT_FALSE(root.getInt(number, key));
        EXPECT_FALSE(root.getDbl(real, key));
        EXPECT_EQ(number, -77);
        EXPECT_EQ(real, -7.75);
        OdString text(OD_T("poison"));
        const bool isText = OdStringView(key) == OD_T("s");
        EXPECT_EQ(root.getStr(text, key), isText);
        EXPECT_EQ(text, isText ? OD_T("text") : OD_T("poison"));
    }
    for (const bool poison : {false, true})
    {
        bool flag = poison;
        EXPECT_FALSE(root.getBool(flag, OD_T("s")));
        EXPECT_FALSE(root.getBool(flag, OD_T("n")));
        EXPECT_EQ(flag, poison);
    }
    std::int32_t number = -77;
    double real = -7.75;
    EXPECT_FALSE(root.getInt(number, OD_T("large")));
    EXPECT_EQ(number, -77);
    EXPECT_TRUE(root.getDbl(real, OD_T("large")));
    EXPECT_EQ(real, 4294967296.0);
}

TEST_F(ParsedBlock, theFirstChildOfNameAndKindWins)
{
    const CPBlock& root = read("x=\"text\ny=5\nx=1\nx=2\nx{\n}\nx{\na=1\n}\n");
    std::int32_t number = 0;
    EXPECT_TRUE(root.getInt(number, OD_T("y")));
    EXPECT_TRUE(root.getInt(number, OD_T("x")));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(root.find(OD_T("x"), CPItem::eBlock), root.data(4));
    EXPECT_TRUE(root.find(OD_T("x"), CPItem::eBool).isNull());
}

TEST_F(ParsedBlock, namesThatLookAlikeAreToldApart)
{
    // Equal length, first, middle and last unit.
    const CPBlock& root = read("aXbYc=1\naYbXc=2\na\\U+0158bYc=3\n");
    std::int32_t number = 0;
    EXPECT_TRUE(root.getInt(number, OD_T("aYbXc")));
    EXPECT_EQ(number, 2);
    EXPECT_TRUE(root.getInt(number, OD_T("a\u0158bYc")));
    EXPECT_EQ(number, 3);
    EXPECT_FALSE(root.getInt(number, OD_T("aZbYc")));
    // The low byte of a wide unit is no ASCII letter.
    EXPECT_FALSE(root.getInt(number, OD_T("aXbY\u0163")));
}

TEST_F(ParsedBlock, numbersMayBeWrittenWithEscapes)
{
    const CPBlock& root = read("a=\\U+0031\\U+0032\n");
    std::int32_t number = 0;
    EXPECT_TRUE(root.getInt(number, OD_T("a")));
    EXPECT_EQ(number, 12);
}

TEST_F(ParsedBlock, dataGivesTheSameItemEachTime)
{
    const CPBlock& root = read("a=1\nb{\nc=2\n}\n");
    EXPECT_EQ(root.size(), 2U);
    const auto first = root.data(0);
    EXPECT_EQ(root.data(0), first);
    const auto block = root.find(OD_T("b"), CPItem::eBlock);
    EXPECT_EQ(root.data(1), block);
    EXPECT_EQ(block->type(), CPItem::eBlock);
    EXPECT_EQ(block->name(), OD_T("b"));
    EXPECT_TRUE(root.data(2).isNull());
}

TEST_F(ParsedBlock, itemsCanBeLookedAtWithoutMakingThem)
{
    const auto shared = read("b{\ns=\"text\ny=TRUE\nn=12\nb=#00\nx{\n}\n}\n").data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    addTo<CPBin>(block, OD_T("added"), OD_T("FF"));
    addTo<CPBool>(block, OD_T("no"), false);
    ASSERT_EQ(block.size(), 7U);
    for (unsigned i = 0; i < block.size(); ++i)
    {
        EXPECT_EQ(block.kindAt(i), block.data(i)->type()) << i;
        EXPECT_EQ(block.nameAt(i), block.data(i)->name()) << i;
    }
    EXPECT_EQ(block.textAt(0), OD_T("text"));
    EXPECT_TRUE(block.flagAt(1));
    EXPECT_EQ(block.textAt(2), OD_T("12"));
    EXPECT_EQ(block.textAt(3), OD_T("00"));
    EXPECT_EQ(block.textAt(5), OD_T("FF"));
    EXPECT_FALSE(block.flagAt(6));
}

TEST_F(ParsedBlock, itemsOutliveTheParser)
{
    OdSharedPtr<CPItem> block;
    OdSharedPtr<CPItem> text;
    {
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(plainFile("b{\nc=2\nd{\ne=\"deep\n}\n}\ns=\"x\n")));
        block = parser.root()->find(OD_T("b"), CPItem::eBlock);
        text = parser.root()->data(1);
    }
    EXPECT_EQ(static_cast<const CPStr&>(*text).text(), OD_T("x"));
    const auto& shown = static_cast<const CPBlock&>(*block);
    std::int32_t number = 0;
    EXPECT_TRUE(shown.getInt(number, OD_T("c")));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(describe(shown), "'c' num '2'\n'd' block (\n'e' str 'deep'\n)\n");
}

TEST_F(ParsedBlock, itemsCanBeAddedBehindThoseThatWereRead)
{
    const auto shared = read("b{\nx=1\n}\n").data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    addTo<CPNum>(block, OD_T("x"), 2);
    addTo<CPStr>(block, OD_T("y"), OD_T("new"));
    EXPECT_EQ(block.size(), 3U);
    EXPECT_EQ(describe(block), "'x' num '1'\n'x' num '2'\n'y' str 'new'\n");
    std::int32_t number = 0;
    EXPECT_TRUE(block.getInt(number, OD_T("x")));
    EXPECT_EQ(number, 1);
    OdString text;
    EXPECT_TRUE(block.getStr(text, OD_T("y")));
    EXPECT_EQ(text, OD_T("new"));
}

TEST_F(ParsedBlock, anEmptyBlockThatWasReadCanBeFilled)
{
    const auto shared = read("b{\n}\n").data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    EXPECT_EQ(block.size(), 0U);
    EXPECT_TRUE(block.data(0).isNull());
    addTo<CPNum>(block, OD_T("x"), 2);
    EXPECT_EQ(describe(block), "'x' num '2'\n");
}

// Each unit of a name counts, with all its bits: U+0141 ends in the same byte as "A".
TEST_F(ParsedBlock, aNameIsNotFoundByOneWithTheSameBytes)
{
    const CPBlock& root = read("AAAAA=1\n");
    const OdChar name[] = {'A', 'A', 'A', 'A', 'A', 0};
    std::int32_t number = 7;
    EXPECT_TRUE(root.getInt(number, OdString(name)));
    EXPECT_EQ(number, 1);
    for (std::size_t i = 0; i < 5; ++i)
    {
        OdString other(name);
        other = other.left(static_cast<int>(i)) + OD_T("\u0141") + other.mid(static_cast<int>(i) + 1);
        number = 7;
        EXPECT_FALSE(root.getInt(number, other)) << i;
        EXPECT_EQ(number, 7);
    }
}

TEST_F(ParsedBlock, aNameOfNothingButRawBytesIsFound)
{
    for (const char* spelling : {"\xC3\xA9=1\n", "\xE9=1\n"})
    {
        std::int32_t number = 7;
        EXPECT_TRUE(read(spelling).getInt(number, OD_T("\u00E9"))) << spelling;
        EXPECT_EQ(number, 1);
    }
}
