#include "tests/unit/pia/RoundTrip.h"

#include "pia_tree/CPIAOutput.h"
#include "tests/unit/pia/TreeTools.h"

#include <gtest/gtest.h>

#include <memory>

std::string bytesOf(const CPBlock& root, pia::Form form)
{
    std::string file;
    CPIAOutput output;
    EXPECT_TRUE(output.writeToMemory(root, file, form)) << output.reason();
    return file;
}

void expectRoundTrip(const CPBlock& root)
{
    const std::string expected = describe(root);
    for (const pia::Form form : {pia::Form::compressed, pia::Form::plain})
    {
        const std::string file = bytesOf(root, form);
        ASSERT_EQ(describeFile(file), expected);
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(file));
        ASSERT_EQ(bytesOf(*parser.root(), form), file);
    }
}

void expectReadOrRefused(std::string_view bytes)
{
    // An exact allocation, so that the sanitizer catches a read past the end.
    const auto exact = std::make_unique_for_overwrite<char[]>(bytes.size());
    bytes.copy(exact.get(), bytes.size());
    CPIAParser parser;
    if (parser.parse({exact.get(), bytes.size()}))
        expectRoundTrip(*parser.root());
    else
        EXPECT_EQ(parser.root(), nullptr);
}
