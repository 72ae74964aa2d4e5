// The meaning of every line, and the lines that are refused.

#include "TreeTools.h"

#include <gtest/gtest.h>

namespace
{
// The description of a text, or why it is refused.
std::string read(std::string_view text)
{
    return describeFile(plainFile(text));
}

std::string refusedAt(const char* reason, unsigned line)
{
    return std::string("refused: ") + reason + " (line " + std::to_string(line) + ")";
}

constexpr auto noLine = "a line is neither an item nor the start or the end of a block";
} // namespace

TEST(Grammar, everyKindHasItsLine)
{
    EXPECT_EQ(read("s=\"text\n"), "'s' str 'text'\n");
    EXPECT_EQ(read("t=TRUE\nf=FALSE\n"), "'t' bool 1\n'f' bool 0\n");
    EXPECT_EQ(read("b=#00FF\n"), "'b' bin '00FF'\n");
    EXPECT_EQ(read("n=12\n"), "'n' num '12'\n");
    EXPECT_EQ(read("x{\ny{\n}\n}\n"), "'x' block (\n'y' block (\n)\n)\n");
}

TEST(Grammar, aStringEndsWithItsLine)
{
    EXPECT_EQ(read("s=\"a\"b=c{}\" \n"), "'s' str 'a<0022>b<003D>c<007B><007D><0022><0020>'\n");
    EXPECT_EQ(read("s=\"\n"), "'s' str ''\n");
    EXPECT_EQ(read("s=\"TRUE\n"), "'s' str 'TRUE'\n");
    EXPECT_EQ(read("b=##\n"), "'b' bin '<0023>'\n");
    EXPECT_EQ(read("b=#\n"), "'b' bin ''\n");
}

TEST(Grammar, anythingElseIsANumber)
{
    EXPECT_EQ(read("n=\n"), "'n' num ''\n");
    EXPECT_EQ(read("n=true\n"), "'n' num 'true'\n");
    EXPECT_EQ(read("n= TRUE\n"), "'n' num '<0020>TRUE'\n");
    EXPECT_EQ(read("n=TRUE \n"), "'n' num 'TRUE<0020>'\n");
    EXPECT_EQ(read("n=TRUEX\n"), "'n' num 'TRUEX'\n");
    EXPECT_EQ(read("n= \"x\n"), "'n' num '<0020><0022>x'\n");
    EXPECT_EQ(read("n=a=b\n"), "'n' num 'a<003D>b'\n");
    EXPECT_EQ(read("n={\n"), "'n' num '<007B>'\n");
    EXPECT_EQ(read("n=}\n"), "'n' num '<007D>'\n");
}

TEST(Grammar, theKindIsDecidedBeforeDecoding)
{
    EXPECT_EQ(read("n=\\U+0054RUE\n"), "'n' num 'TRUE'\n");
    EXPECT_EQ(read("n=\\U+0022x\n"), "'n' num '<0022>x'\n");
    EXPECT_EQ(read("n=\\U+0023x\n"), "'n' num '<0023>x'\n");
    EXPECT_EQ(read("a\\U+003Db=1\n"), "'a<003D>b' num '1'\n");
    EXPECT_EQ(read("a\\U+007B=1\n"), "'a<007B>' num '1'\n");
    EXPECT_EQ(read("\\U+007D{\n}\n"), "'<007D>' block (\n)\n");
    EXPECT_EQ(read("\\U+0020a\\U+0020=1\n"), "'<0020>a<0020>' num '1'\n");
}

TEST(Grammar, escapesAreDecodedInOnePass)
{
    EXPECT_EQ(read("s=\"\\U+005CU+0041\n"), "'s' str '<005C>U<002B>0041'\n");
    EXPECT_EQ(read("s=\"\\U+00e4\\U+00C4\n"), "'s' str '<00E4><00C4>'\n");
    EXPECT_EQ(read("s=\"\\\\U+0041\n"), "'s' str '<005C>A'\n");
    EXPECT_EQ(read("s=\"\\U+D800\\U+0000\\U+FFFF\n"), "'s' str '<D800><0000><FFFF>'\n");
}

TEST(Grammar, anyOtherBackslashIsLiteral)
{
    EXPECT_EQ(read("s=\"\\\\server\\Up\\\n"), "'s' str '<005C><005C>server<005C>Up<005C>'\n");
    for (const char* tail : {"U", "U+", "U+0", "U+00", "U+004", "U+004G", "u+0041", "U-0041", "U+ 041"})
    {
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(plainFile(std::string("s=\"\\") + tail)));
        EXPECT_EQ(strOf(*parser.root(), OD_T("s")), odFromUtf8(std::string("\\") + tail));
    }
}

TEST(Grammar, namesMayBeEmpty)
{
    EXPECT_EQ(read("=1\n"), "'' num '1'\n");
    EXPECT_EQ(read("=\n"), "'' num ''\n");
    EXPECT_EQ(read("{\n}\n"), "'' block (\n)\n");
}

TEST(Grammar, rawBlanksAroundNamesAndBracesAreIgnored)
{
    EXPECT_EQ(read("  a  =1\n"), "'a' num '1'\n");
    EXPECT_EQ(read("  a b  {  \n  }  \n"), "'a<0020>b' block (\n)\n");
    EXPECT_EQ(read("\t \tx=1\n\t\n"), "'x' num '1'\n");
}

TEST(Grammar, indentationIsIgnored)
{
    EXPECT_EQ(read("     a{\nb=1\n          }\n"), "'a' block (\n'b' num '1'\n)\n");
}

TEST(Grammar, blankLinesAreIgnored)
{
    EXPECT_EQ(read("\n\n  \n\t\n\r\n \r\na=1\n\n"), "'a' num '1'\n");
}

TEST(Grammar, oneCrIsPartOfTheLineEnd)
{
    EXPECT_EQ(read("a=1\r\nb{\r\n}\r\n"), "'a' num '1'\n'b' block (\n)\n");
    EXPECT_EQ(read("a=\"x\r\r\n"), "'a' str 'x<000D>'\n");
    EXPECT_EQ(read("a=\"\r\n"), "'a' str ''\n");
    EXPECT_EQ(read("a=TRUE\r\n"), "'a' bool 1\n");
    // Without a line end the CR is part of the value.
    EXPECT_EQ(read("a=\"x\r"), "'a' str 'x<000D>'\n");
}

TEST(Grammar, theLastLineNeedsNoEnd)
{
    EXPECT_EQ(read("a=1"), "'a' num '1'\n");
    EXPECT_EQ(read("a="), "'a' num ''\n");
    EXPECT_EQ(read("a{\n}"), "'a' block (\n)\n");
    EXPECT_EQ(read("   "), "");
}

TEST(Grammar, otherControlBytesAreLiteral)
{
    EXPECT_EQ(read(std::string_view("a\x01=\"x\0\ty\x7F\n", 10)), "'a<0001>' str 'x<0000><0009>y<007F>'\n");
    // A tab is indentation only at the start of a line.
    EXPECT_EQ(read("a\t=1\t\n"), "'a<0009>' num '1<0009>'\n");
}

TEST(Grammar, orderAndDuplicatesArePreserved)
{
    EXPECT_EQ(read("b=1\na=2\nb=3\nc{\n}\nb{\n}\n"),
              "'b' num '1'\n'a' num '2'\n'b' num '3'\n'c' block (\n)\n'b' block (\n)\n");
}

TEST(Grammar, malformedLinesAreReportedByNumber)
{
    for (const char* line : {"oops", "a b",   "{x",    "}x",     "} }",   "a}",  "}{",  "a{b",  "a{b{", "a}{",
                             "a\"{", "a{b=1", "a}b=1", "a\"b=1", "\"a=1", "{=1", "}=1", "a{ =", "\x01", "}\t"})
    {
        const std::string text = std::string("a=1\r\n\n") + line + "\nb=2\n";
        EXPECT_EQ(read(text), refusedAt(noLine, 3)) << line;
    }
}

TEST(Grammar, blocksMustMatch)
{
    EXPECT_EQ(read("a=1\n}\nb=1\n"), refusedAt("there is no block to close", 2));
    EXPECT_EQ(read("a{\n}\n}\n"), refusedAt("there is no block to close", 3));
    EXPECT_EQ(read("a{\nb{\n}\n"), refusedAt("a block is not closed", 3));
    EXPECT_EQ(read("a{"), refusedAt("a block is not closed", 1));
}

TEST(Charset, validUtf8IsReadAsUtf8)
{
    EXPECT_EQ(read("gr\xC3\xB6\xC3\x9F"
                   "e=\"\xE2\x82\xAC\xF0\x9F\x96\xA8\n"),
              "'gr<00F6><00DF>e' str '<20AC><D83D><DDA8>'\n");
    // A replacement character in the text is not an error.
    EXPECT_EQ(read("a=\"\xEF\xBF\xBD\n"), "'a' str '<FFFD>'\n");
    EXPECT_EQ(read("a=\"\xEF\xBF\xBF\n"), "'a' str '<FFFF>'\n");
}

TEST(Charset, anyOtherTextIsReadAsWindows1252)
{
    EXPECT_EQ(read("gr\xF6\xDF"
                   "e=\"\x80\xFF\n"),
              "'gr<00F6><00DF>e' str '<20AC><00FF>'\n");
    // One invalid byte decides for the whole text.
    EXPECT_EQ(read("a=\"\xC3\xB6\nb=\"\xE4\n"), "'a' str '<00C3><00B6>'\n'b' str '<00E4>'\n");
    EXPECT_EQ(read("a=\"\xC3"), "'a' str '<00C3>'\n");
    // Overlong forms and encoded surrogates are not valid.
    EXPECT_EQ(read("a=\"\xC0\xAF\n"), "'a' str '<00C0><00AF>'\n");
    EXPECT_EQ(read("a=\"\xED\xA0\x80\n"), "'a' str '<00ED><00A0><20AC>'\n");
}

TEST(Charset, everyByteOfWindows1252IsMapped)
{
    // The published code page; the five undefined bytes map to the same code.
    constexpr unsigned high[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    std::string text = "a=\"";
    OdString expected;
    for (unsigned c = 0x80; c <= 0xFF; ++c)
    {
        text += static_cast<char>(c);
        expected += static_cast<OdChar>(c < 0xA0 ? high[c - 0x80] : c);
    }
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(plainFile(text)));
    EXPECT_EQ(strOf(*parser.root(), OD_T("a")), expected);
}

TEST(Charset, escapesAndRawBytesMayBeMixed)
{
    EXPECT_EQ(read("\xC3\xA4\\U+0041=\"\\U+00E4\xC3\xA4\\\n"), "'<00E4>A' str '<00E4><00E4><005C>'\n");
}

TEST(Charset, aNameIsFoundInEverySpelling)
{
    for (const char* spelling : {"gr\\U+00F6\\U+00dfe",
                                 "gr\xC3\xB6\xC3\x9F"
                                 "e",
                                 "gr\xF6\xDF"
                                 "e"})
    {
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(plainFile(std::string(spelling) + "=7\n")));
        EXPECT_EQ(intOf(*parser.root(), OD_T("gr\u00F6\u00DFe")), 7) << spelling;
    }
}
