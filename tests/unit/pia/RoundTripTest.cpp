// Round trips change nothing, and no input crashes.

#include "RoundTrip.h"
#include "TreeTools.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    void fill(CPBlock& block, int depth)
    {
        const unsigned count = below(8);
        for (unsigned i = 0; i < count; ++i)
            addChild(block, depth);
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    OdString text()
    {
        // Characters that matter to the grammar, the escapes and the charset are frequent.
        static constexpr OdChar often[] = {'\\', 'U',  '+',  '0',  '1',  'a',    'F',    ' ',    ' ',    '=',
                                           '{',  '}',  '"',  '#',  '\n', '\r',   '\t',   0,      'T',    'R',
                                           'E',  0x7E, 0x7F, 0x80, 0xE4, 0xD800, 0xDC00, 0xFFFF, 0x20AC, 0xFEFF};
        OdString result;
        const unsigned length = below(12);
        for (unsigned i = 0; i < length; ++i)
            result +=
                below(10) ? often[below(static_cast<unsigned>(std::size(often)))] : static_cast<OdChar>(below(0x10000));
        const OdChar* words[] = {OD_T("TRUE"), OD_T("FALSE"), OD_T("\\U+0041"), OD_T("\\U+005C"), OD_T("")};
        return below(6) ? result : OdString(words[below(5)]);
    }

    void addChild(CPBlock& block, int depth)
    {
        switch (below(depth > 0 ? 7 : 5))
        {
        case 0:
            return addTo<CPStr>(block, text(), text());
        case 1:
            return addTo<CPBin>(block, text(), text());
        case 2:
            return addTo<CPNum>(block, text(), OdStringView(text()));
        case 3:
            return addTo<CPBool>(block, text(), below(2) == 0);
        case 4:
            return addTo<CPNum>(block, text(), static_cast<double>(m_random()) / 1024.0, below(2) ? 1 : -1);
        default:
            const OdSharedPtr<CPItem> child(new CPBlock(text()));
            fill(static_cast<CPBlock&>(*child), depth - 1);
            block.add(child);
        }
    }

    std::mt19937 m_random;
};

// A text with every construct of the format.
constexpr std::string_view everything = "meta{\n"
                                        " name=\"A4 \\U+00E4\\ \\U+005CU+0041\\U+0020\n"
                                        " empty=\"\n"
                                        " count=12\n"
                                        " size=1.5e+300\n"
                                        " odd=\\U+0054RUE\n"
                                        " yes=TRUE\n"
                                        " no=FALSE\n"
                                        " \\U+0020x\\U+003D=#00FF\n"
                                        " inner{\n"
                                        "  {\n"
                                        "  }\n"
                                        " }\n"
                                        "}\n"
                                        "=\n";
} // namespace

TEST(RoundTrip, generatedTreesSurvive)
{
    for (unsigned seed = 1; seed <= 400; ++seed)
    {
        CPBlock root(OD_T(""));
        Generator(seed).fill(root, 4);
        SCOPED_TRACE(seed);
        expectRoundTrip(root);
        if (HasFatalFailure())
            return;
    }
}

TEST(RoundTrip, everyCodeUnitSurvives)
{
    OdString all;
    for (unsigned c = 0; c <= 0xFFFF; ++c)
        all += static_cast<OdChar>(c);
    CPBlock root(OD_T(""));
    addTo<CPStr>(root, all, all);
    addTo<CPBin>(root, OD_T("bin"), all);
    addTo<CPNum>(root, OD_T("num"), all.view());
    // A single unit is at the start and at the end of its text.
    for (unsigned c = 0; c <= 0xFFFF; c += c < 0x200 ? 1 : 0x101)
    {
        const OdChar unit = static_cast<OdChar>(c);
        const OdStringView text(&unit, 1);
        addTo<CPStr>(root, text, text);
        addTo<CPNum>(root, text, text);
        addTo<CPBlock>(root, text);
    }
    expectRoundTrip(root);
}

TEST(RoundTrip, anEmptyRootSurvives)
{
    expectRoundTrip(CPBlock(OD_T("")));
}

TEST(RoundTrip, aParsedTreeCanBeChangedAndWritten)
{
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(plainFile("a=1\nb{\n}\n")));
    const auto block = parser.root()->data(1);
    addTo<CPStr>(static_cast<CPBlock&>(*block), OD_T("c"), OD_T("new"));
    EXPECT_EQ(bytesOf(*parser.root(), pia::Form::plain), plainFile("a=1\nb{\n c=\"new\n}\n"));
}

TEST(HostileBytes, everyPrefixIsReadOrRefused)
{
    ASSERT_EQ(describeFile(plainFile(everything)).find("refused"), std::string::npos);
    for (const std::string& file : {plainFile(everything), compressedFile(everything)})
        for (std::size_t length = 0; length <= file.size(); ++length)
        {
            SCOPED_TRACE(length);
            expectReadOrRefused(std::string_view(file).substr(0, length));
        }
}

TEST(HostileBytes, mutatedFilesAreReadOrRefused)
{
    std::mt19937 random(99);
    for (const std::string& sound : {plainFile(everything), compressedFile(everything)})
        for (int i = 0; i < 3000; ++i)
        {
            std::string file = sound;
            for (unsigned changes = 1 + static_cast<unsigned>(random() % 3); changes > 0; --changes)
            {
                const std::size_t at = random() % file.size();
                constexpr std::string_view special = "\n\r={}\"#\\ \t\xC3\xE4\xFF";
                switch (random() % 4)
                {
                case 0:
                    file[at] = static_cast<char>(static_cast<unsigned char>(random()));
                    break;
                case 1:
                    file[at] = special[random() % special.size()];
                    break;
                case 2:
                    file.erase(at, 1 + random() % 5);
                    break;
                default:
                    file.insert(at, 1, special[random() % special.size()]);
                }
                if (file.empty())
                    break;
            }
            SCOPED_TRACE(i);
            expectReadOrRefused(file);
            if (HasFatalFailure())
                return;
        }
}
