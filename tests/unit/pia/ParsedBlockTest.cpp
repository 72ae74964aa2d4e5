// Only in blocks that were read: lookup without decoding, items on demand, items added later.

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

TEST_F(ParsedBlock, numbersMayContainEscapes)
{
    EXPECT_EQ(intOf(read("a=\\U+0031\\U+0032\n"), OD_T("a")), 12);
}

TEST_F(ParsedBlock, propertiesAreReadableWithoutCreatingItems)
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
    EXPECT_EQ(intOf(shown, OD_T("c")), 2);
    EXPECT_EQ(describe(shown), "'c' num '2'\n'd' block (\n'e' str 'deep'\n)\n");
}

TEST_F(ParsedBlock, itemsCanBeAddedAfterThoseRead)
{
    const auto shared = read("b{\nx=1\n}\n").data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    addTo<CPNum>(block, OD_T("x"), 2);
    addTo<CPStr>(block, OD_T("y"), OD_T("new"));
    EXPECT_EQ(block.size(), 3U);
    EXPECT_EQ(describe(block), "'x' num '1'\n'x' num '2'\n'y' str 'new'\n");
    EXPECT_EQ(intOf(block, OD_T("x")), 1);
    EXPECT_EQ(strOf(block, OD_T("y")), OD_T("new"));
}

TEST_F(ParsedBlock, anEmptyBlockCanBeFilled)
{
    const auto shared = read("b{\n}\n").data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    EXPECT_EQ(block.size(), 0U);
    EXPECT_TRUE(block.data(0).isNull());
    addTo<CPNum>(block, OD_T("x"), 2);
    EXPECT_EQ(describe(block), "'x' num '2'\n");
}

TEST_F(ParsedBlock, aNameOfRawBytesIsFound)
{
    for (const char* spelling : {"\xC3\xA9=1\n", "\xE9=1\n"})
        EXPECT_EQ(intOf(read(spelling), OD_T("\u00E9")), 1) << spelling;
}
