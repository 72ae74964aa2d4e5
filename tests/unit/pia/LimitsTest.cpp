// Every limit: the largest size that is read and written, and one more, which is refused.

#include "pia_tree/Limits.h"
#include "TreeTools.h"
#include "files/FileAccess.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/TextWriter.h"

#include <gtest/gtest.h>

namespace
{
// Why a file cannot be read; "" if it can.
std::string refusal(std::string_view file, unsigned line = 0)
{
    CPIAParser parser;
    if (parser.parse(file))
        return "";
    EXPECT_EQ(parser.root(), nullptr);
    EXPECT_EQ(parser.line(), line);
    return parser.reason();
}

// Why a tree cannot be written; "" if it can.
std::string refusalToWrite(const CPBlock& root)
{
    files::ByteBuffer text;
    const char* reason = pia::writeText(root, text);
    return reason ? reason : "";
}

std::string repeated(std::string_view part, std::size_t count)
{
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += part;
    return text;
}

// A text of this many bytes in lines that exceed no other limit.
std::string textOfSize(std::size_t size)
{
    constexpr std::size_t lineSize = std::size_t{1} << 20;
    const std::string line = "a=\"" + std::string(lineSize - 4, 'x') + "\n";
    std::string text = repeated(line, size / lineSize);
    const std::size_t rest = size % lineSize;
    return text += std::string(rest, ' ');
}

OdString textOf(std::size_t length)
{
    return OdString(std::basic_string<OdChar>(length, 'x'));
}
} // namespace

TEST(Limits, haveTheDocumentedValues)
{
    EXPECT_EQ(files::maxFileBytes, 64U * 1024 * 1024);
    EXPECT_EQ(pia::maxTextBytes, 64U * 1024 * 1024);
    EXPECT_EQ(pia::maxLineBytes, 32U * 1024 * 1024);
    EXPECT_EQ(pia::maxNesting, 128U);
    EXPECT_EQ(pia::maxItems, 1000000U);
    EXPECT_EQ(pia::maxFirstLine, 64U);
}

TEST(Limits, nestingWhenReading)
{
    EXPECT_EQ(refusal(plainFile(repeated("{\n", 128) + repeated("}\n", 128))), "");
    EXPECT_EQ(refusal(plainFile(repeated("{\n", 129) + repeated("}\n", 129)), 129), "the blocks are nested too deeply");
    EXPECT_EQ(refusal(plainFile(repeated("{\n", 500000)), 129), "the blocks are nested too deeply");
}

TEST(Limits, nestingWhenWriting)
{
    OdSharedPtr<CPItem> block(new CPBlock(OD_T("")));
    const auto nestOnce = [&]
    {
        const OdSharedPtr<CPItem> outer(new CPBlock(OD_T("")));
        static_cast<CPBlock&>(*outer).add(block);
        block = outer;
    };
    for (int depth = 0; depth < 128; ++depth)
        nestOnce();
    EXPECT_EQ(refusalToWrite(static_cast<CPBlock&>(*block)), "");
    nestOnce();
    EXPECT_EQ(refusalToWrite(static_cast<CPBlock&>(*block)), "the blocks are nested too deeply");
}

TEST(Limits, itemsWhenReading)
{
    // Blocks count too.
    const std::string most = plainFile(repeated("{\n}\n", 200000) + repeated("=\n", 800000));
    EXPECT_EQ(refusal(most), "");
    EXPECT_EQ(refusal(most + "=\n", 1200001), "there are too many items");
    EXPECT_EQ(refusal(most + "{\n}\n", 1200001), "there are too many items");
}

TEST(Limits, itemsWhenWriting)
{
    // Shared items make a small tree a large file.
    const OdSharedPtr<CPItem> number(new CPNum(OD_T(""), OD_T("")));
    const OdSharedPtr<CPItem> thousand(new CPBlock(OD_T("")));
    for (int i = 0; i < 999; ++i)
        static_cast<CPBlock&>(*thousand).add(number);
    CPBlock root(OD_T(""));
    for (int i = 0; i < 1000; ++i)
        root.add(thousand);
    EXPECT_EQ(refusalToWrite(root), "");
    root.add(number);
    EXPECT_EQ(refusalToWrite(root), "there are too many items");
}

TEST(Limits, lineWhenReading)
{
    constexpr std::size_t limit = std::size_t{32} << 20;
    const std::string longest = " a=\"" + std::string(limit - 4, 'x');
    EXPECT_EQ(refusal(plainFile(longest)), "");
    EXPECT_EQ(refusal(plainFile(longest + "\r\nb=1\n")), "");
    EXPECT_EQ(refusal(plainFile("b=1\n" + longest + "x\n"), 2), "a line is too long");
    EXPECT_EQ(refusal(plainFile(std::string(limit + 1, ' ')), 1), "a line is too long");
}

TEST(Limits, lineWhenWriting)
{
    constexpr std::size_t limit = std::size_t{32} << 20;
    CPBlock longest(OD_T(""));
    addTo<CPStr>(longest, OD_T("a"), textOf(limit - 3));
    EXPECT_EQ(refusalToWrite(longest), "");
    CPBlock tooLong(OD_T(""));
    addTo<CPStr>(tooLong, OD_T("a"), textOf(limit - 2));
    EXPECT_EQ(refusalToWrite(tooLong), "a line would be too long");
    // Indentation is part of the line.
    const OdSharedPtr<CPItem> block(new CPBlock(OD_T("b")));
    static_cast<CPBlock&>(*block).add(longest.data(0));
    CPBlock indented(OD_T(""));
    indented.add(block);
    EXPECT_EQ(refusalToWrite(indented), "a line would be too long");
}

TEST(Limits, textAfterInflation)
{
    const std::string largest = textOfSize(std::size_t{64} << 20);
    EXPECT_EQ(refusal(compressedFile(largest)), "");
    EXPECT_EQ(refusal(compressedFile(largest + " ")), "the text is too large");
}

TEST(Limits, fileWhenReading)
{
    const std::string largest = plainFile(textOfSize((std::size_t{64} << 20) - plainFirstLine.size()));
    ASSERT_EQ(largest.size(), std::size_t{64} << 20);
    EXPECT_EQ(refusal(largest), "");
    EXPECT_EQ(refusal(largest + " "), "the file is too large");
}

TEST(Limits, textWhenWriting)
{
    // The same line 64 times: name, divider, quote, value, line end.
    const OdSharedPtr<CPItem> line(new CPStr(OD_T("a"), textOf((std::size_t{1} << 20) - 4)));
    CPBlock root(OD_T(""));
    for (int i = 0; i < 64; ++i)
        root.add(line);
    EXPECT_EQ(refusalToWrite(root), "");
    addTo<CPNum>(root, OD_T(""), OD_T(""));
    EXPECT_EQ(refusalToWrite(root), "the text would be too large");
}

TEST(Limits, fileWhenWriting)
{
    std::string text((std::size_t{64} << 20) - plainFirstLine.size(), ' ');
    files::ByteBuffer file;
    EXPECT_EQ(pia::pack(text, pia::Form::plain, file), nullptr);
    EXPECT_EQ(file.size(), std::size_t{64} << 20);
    text += ' ';
    EXPECT_STREQ(pia::pack(text, pia::Form::plain, file), "the file would be too large");
}
