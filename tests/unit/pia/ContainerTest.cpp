// The container of a file: first line, codec, numbers, stream.

#include "TreeTools.h"
#include "pia_tree/CPIAOutput.h"

#include <gtest/gtest.h>

#include <zlib.h>

namespace
{
constexpr std::string_view text = "a=1\nb{\n c=\"x\n}\n";
const std::string content = "'a' num '1'\n'b' block (\n'c' str 'x'\n)\n";

constexpr auto noConfiguration = "refused: the file is not a plotter configuration (line 0)";
constexpr auto endsTooEarly = "refused: the file ends too early (line 0)";
constexpr auto streamEndsTooEarly = "refused: the compressed data ends too early (line 0)";
constexpr auto damaged = "refused: the compressed data is damaged (line 0)";

std::string withFirstLine(std::string_view line)
{
    return std::string(line) + compressedFile(text).substr(compressedFirstLine.size());
}
} // namespace

TEST(Container, readsBothForms)
{
    EXPECT_EQ(describeFile(compressedFile(text)), content);
    EXPECT_EQ(describeFile(plainFile(text)), content);
}

TEST(Container, staleNumbersAreIgnored)
{
    constexpr std::size_t numbersAt = compressedFirstLine.size() + 11;
    for (std::size_t number = 0; number < 3; ++number)
        for (const unsigned value : {0U, 1U, 5U, 100000U, 0x7FFFFFFFU, 0xFFFFFFFFU})
            EXPECT_EQ(describeFile(compressedFile(text).replace(numbersAt + 4 * number, 4, littleEndian(value))),
                      content)
                << "number " << number << " is " << value;
}

TEST(Container, aStaleLengthDoesNotTruncateTheText)
{
    const std::string large = "a=\"" + std::string(200000, 'x') + "\nb=1\n";
    std::string file = compressedFile(large);
    file.replace(compressedFirstLine.size() + 15, 4, littleEndian(1));
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(file));
    EXPECT_EQ(strOf(*parser.root(), OD_T("a")), OdString(std::basic_string<OdChar>(200000, 'x')));
    EXPECT_EQ(parser.root()->size(), 2U);
}

TEST(Container, bytesAfterTheStreamAreIgnored)
{
    EXPECT_EQ(describeFile(compressedFile(text) + "trailing"), content);
}

TEST(Container, theFirstLineNeedsAllItsParts)
{
    EXPECT_EQ(describeFile(withFirstLine("PIAFILEVERSION_1.5,PC3VER2,compress\r\n")), content);
    EXPECT_EQ(describeFile(withFirstLine("PIAFILEVERSION_x,PC3VER,compress\r\n")), content);
    for (const char* line :
         {"", "\r\n", "PIAFILEVERSION_,PC3VER1,compress\r\n", "PIAFILEVERSION,PC3VER1,compress\r\n",
          "piafileversion_2.0,PC3VER1,compress\r\n", " PIAFILEVERSION_2.0,PC3VER1,compress\r\n",
          "PIAFILEVERSION_2.0,STBVER1,compress\r\n", "PIAFILEVERSION_2.0,compress\r\n", "PIAFILEVERSION_2.0\r\n",
          "PIAFILEVERSION_2.0,PC3VER1,compressed\r\n", "PIAFILEVERSION_2.0,PC3VER1,\r\n",
          "PIAFILEVERSION_2.0,PC3VER1,compress,\r\n", "PIAFILEVERSION_2.0,PC3VER1,compress,x\r\n",
          "PIAFILEVERSION_2.0,PC3VER1,compress \r\n", "PIAFILEVERSION_2.0,PC3VER1,compress\r\r\n"})
        EXPECT_EQ(describeFile(withFirstLine(line)), noConfiguration) << line;
}

TEST(Container, onlyThePlainFormAcceptsABareLf)
{
    EXPECT_EQ(describeFile("PIAFILEVERSION_2.0,PC3VER1\na=1\n"), "'a' num '1'\n");
    EXPECT_EQ(describeFile(withFirstLine("PIAFILEVERSION_2.0,PC3VER1,compress\n")), noConfiguration);
}

TEST(Container, onlyThePlainFormAcceptsABom)
{
    EXPECT_EQ(describeFile("\xEF\xBB\xBF" + plainFile(text)), content);
    EXPECT_EQ(describeFile("\xEF\xBB\xBF" + compressedFile(text)), noConfiguration);
    EXPECT_EQ(describeFile("\xEF\xBB\xBF\xEF\xBB\xBF" + plainFile(text)), noConfiguration);
}

TEST(Container, theFirstLineHasAtMost64Bytes)
{
    const auto plain = [](std::size_t length)
    {
        std::string line = "PIAFILEVERSION_2.0,PC3VER";
        line.resize(length, '1');
        return line;
    };
    EXPECT_EQ(describeFile(plain(64) + "\r\na=1\n"), "'a' num '1'\n");
    EXPECT_EQ(describeFile(plain(65) + "\r\na=1\n"), noConfiguration);
    EXPECT_EQ(describeFile(plain(64) + "\na=1\n"), "'a' num '1'\n");
    EXPECT_EQ(describeFile(plain(65) + "\na=1\n"), noConfiguration);
    EXPECT_EQ(describeFile("\xEF\xBB\xBF" + plain(64) + "\r\na=1\n"), "'a' num '1'\n");
    EXPECT_EQ(describeFile(plain(64)), noConfiguration);
    EXPECT_EQ(describeFile(std::string(100000, 'P')), noConfiguration);
}

TEST(Container, aFileWithoutTextIsAnEmptyRoot)
{
    EXPECT_EQ(describeFile(plainFirstLine), "");
    EXPECT_EQ(describeFile(compressedFile("")), "");
    EXPECT_EQ(describeFile(""), noConfiguration);
}

TEST(Container, anotherCodecIsRefused)
{
    EXPECT_EQ(describeFile(compressedFile(text).replace(compressedFirstLine.size(), 1, "q")),
              "refused: the file is compressed in an unknown way (line 0)");
}

TEST(Container, everyPrefixOfACompressedFileIsRefused)
{
    const std::string file = compressedFile(text);
    for (std::size_t length = 0; length < file.size(); ++length)
    {
        // An exact allocation, so that the sanitizer catches a read past the end.
        const auto bytes = std::make_unique_for_overwrite<char[]>(length);
        file.copy(bytes.get(), length);
        const char* expected = length < compressedFirstLine.size()        ? noConfiguration
                               : length < compressedFirstLine.size() + 23 ? endsTooEarly
                                                                          : streamEndsTooEarly;
        EXPECT_EQ(describeFile({bytes.get(), length}), expected) << length;
    }
}

TEST(Container, aDamagedStreamIsRefused)
{
    constexpr std::size_t streamAt = compressedFirstLine.size() + 23;
    std::string file = compressedFile(text);
    EXPECT_EQ(describeFile(std::string(file).replace(streamAt, 1, "\x77")), damaged) << "another header";
    EXPECT_EQ(describeFile(std::string(file).replace(streamAt, 2, "\x78\xBB")), damaged) << "needs a dictionary";
    file.back() = static_cast<char>(file.back() ^ 1);
    EXPECT_EQ(describeFile(file), damaged) << "another checksum";
}

TEST(Container, aStoredStreamIsRead)
{
    // One stored block, assembled by hand: final, length, its complement, the bytes, Adler-32.
    const std::string body = "a=1\n";
    const std::string stream =
        std::string("\x78\x01\x01\x04\x00\xFB\xFF", 7) + body + std::string("\x03\xC8\x01\x0A", 4);
    // Adler-32 of "a=1\n": a = 1 + 0x61 + 0x3D + 0x31 + 0x0A = 0xDA; b = 0x62 + 0x9F + 0xD0 + 0xDA = 0x2AB.
    std::string checked = stream;
    checked.replace(checked.size() - 4, 4, std::string("\x02\xAB\x00\xDA", 4));
    const std::string head = std::string(compressedFirstLine) + "pmzlibcodec" + std::string(12, '\0');
    EXPECT_EQ(describeFile(head + checked), "'a' num '1'\n");
    EXPECT_EQ(describeFile(head + stream), damaged);
}

TEST(Container, theCompressedFormIsWrittenWithItsNumbers)
{
    CPBlock root(OD_T(""));
    addTo<CPNum>(root, OD_T("a"), 1);
    std::string file;
    CPIAOutput output;
    ASSERT_TRUE(output.writeToMemory(root, file));
    EXPECT_STREQ(output.reason(), "");

    constexpr std::size_t codecAt = compressedFirstLine.size();
    EXPECT_EQ(codecAt, 37U);
    ASSERT_GT(file.size(), codecAt + 23);
    EXPECT_EQ(file.substr(0, codecAt), compressedFirstLine);
    EXPECT_EQ(file.substr(codecAt, 11), "pmzlibcodec");
    const std::string stream = file.substr(codecAt + 23);
    const auto sum = adler32(1, reinterpret_cast<const Bytef*>(stream.data()), static_cast<uInt>(stream.size()));
    EXPECT_EQ(file.substr(codecAt + 11, 4), littleEndian(static_cast<unsigned>(sum)));
    EXPECT_EQ(file.substr(codecAt + 15, 4), littleEndian(4));
    EXPECT_EQ(file.substr(codecAt + 19, 4), littleEndian(static_cast<unsigned>(stream.size())));

    char inflated[16];
    uLongf length = sizeof inflated;
    ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(inflated), &length, reinterpret_cast<const Bytef*>(stream.data()),
                         static_cast<uLong>(stream.size())),
              Z_OK);
    EXPECT_EQ(std::string(inflated, length), "a=1\n");
}

TEST(Container, thePlainFormIsWrittenOnRequest)
{
    CPBlock root(OD_T(""));
    addTo<CPNum>(root, OD_T("a"), 1);
    std::string file;
    EXPECT_TRUE(CPIAOutput().writeToMemory(root, file, pia::Form::plain));
    EXPECT_EQ(file, plainFile("a=1\n"));
}

TEST(CPIAParser, aFailedReadDiscardsThePreviousRoot)
{
    CPIAParser parser;
    EXPECT_EQ(parser.root(), nullptr);
    EXPECT_STREQ(parser.reason(), "");
    ASSERT_TRUE(parser.parse(plainFile("a=1\n")));
    EXPECT_NE(parser.root(), nullptr);

    EXPECT_FALSE(parser.parse(plainFile("a=1\noops\n")));
    EXPECT_EQ(parser.root(), nullptr);
    EXPECT_STRNE(parser.reason(), "");
    EXPECT_EQ(parser.line(), 2U);

    EXPECT_TRUE(parser.parse(plainFile("")));
    EXPECT_STREQ(parser.reason(), "");
    EXPECT_EQ(parser.line(), 0U);
    EXPECT_EQ(parser.root()->name(), OD_T(""));
    EXPECT_EQ(parser.root()->size(), 0U);
}
