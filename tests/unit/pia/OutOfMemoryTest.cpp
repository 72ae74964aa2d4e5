// Each allocation fails in turn: the read or write fails, and nothing else changes.

#include "TreeTools.h"
#include "pia_tree/CPIAOutput.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/files/FolderTools.h"

#include <gtest/gtest.h>

namespace
{
constexpr std::string_view text = "meta{\n name=\"a value that is long enough to be on the heap\n"
                                  " gr\xC3\xB6\xC3\x9F"
                                  "e=1\n}\nflag=TRUE\nbin=#00FF\n";

void fill(CPBlock& root)
{
    const OdSharedPtr<CPItem> block(new CPBlock(OD_T("a block with a long name")));
    addTo<CPStr>(static_cast<CPBlock&>(*block), OD_T("name"), OD_T("a value that is long enough for the heap"));
    root.add(block);
}

// For work that throws bad_alloc: returns false instead.
template <class Work>
auto unlessOutOfMemory(Work work)
{
    return [work]
    {
        try
        {
            work();
            return true;
        }
        catch (const std::bad_alloc&)
        {
            return false;
        }
    };
}
} // namespace

TEST(OutOfMemory, aReadFails)
{
    for (const std::string& file : {compressedFile(text), plainFile(text)})
    {
        CPIAParser parser;
        const unsigned failures =
            failEachAllocation([&] { return parser.parse(file); },
                               [&](bool done, bool failed)
                               {
                                   EXPECT_EQ(done, !failed);
                                   EXPECT_EQ(parser.root() == nullptr, failed);
                                   EXPECT_STREQ(parser.reason(), failed ? "there is not enough memory" : "");
                               });
        EXPECT_GT(failures, 4U);
    }
}

TEST(OutOfMemory, aReadFromDiskFails)
{
    const TemporaryFolder folder;
    const OdString name = folder.at("A4.pc3");
    putContent(name, compressedFile(text));
    const unsigned failures = failEachAllocation(
        [&]
        {
            CPIAParser parser;
            return parser.read(name.c_str());
        },
        [](bool done, bool failed) { EXPECT_EQ(done, !failed); });
    EXPECT_GT(failures, 4U);
}

TEST(OutOfMemory, aFailedWriteKeepsTheOldFile)
{
    const TemporaryFolder folder;
    const OdString name = folder.at("A4.pc3");
    CPBlock root(OD_T(""));
    fill(root);
    putContent(name, "old");
    CPIAOutput output;
    const unsigned failures = failEachAllocation([&] { return output.write(root, name.c_str()); },
                                                 [&](bool done, bool failed)
                                                 {
                                                     EXPECT_EQ(done, !failed);
                                                     EXPECT_EQ(contentOf(name) == "old", failed);
                                                     EXPECT_EQ(namesIn(folder.path()).size(), 1U);
                                                 });
    EXPECT_GT(failures, 4U);
}

TEST(OutOfMemory, writingAParsedTreeFails)
{
    std::string bytes;
    unsigned failures = 0;
    for (const bool again : {false, true})
    {
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(plainFile(text)));
        failures = failEachAllocation([&] { return CPIAOutput().writeToMemory(*parser.root(), bytes); },
                                      [again](bool done, bool failed) { EXPECT_EQ(done, !failed) << again; });
    }
    EXPECT_GT(failures, 4U);
    EXPECT_EQ(describeFile(bytes), describeFile(plainFile(text)));
}

TEST(OutOfMemory, aFailedLookupThrowsAndChangesNothing)
{
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(plainFile(text)));
    const CPBlock& root = *parser.root();
    const unsigned finding =
        failEachAllocation(unlessOutOfMemory([&] { return root.find(OD_T("meta"), CPItem::eBlock); }),
                           [&](bool done, bool failed)
                           {
                               EXPECT_EQ(done, !failed);
                               EXPECT_EQ(root.size(), 3U);
                           });
    EXPECT_GE(finding, 2U);

    const auto meta = root.find(OD_T("meta"), CPItem::eBlock);
    OdString value(OD_T("poison"));
    const unsigned getting =
        failEachAllocation(unlessOutOfMemory([&] { static_cast<const CPBlock&>(*meta).getStr(value, OD_T("name")); }),
                           [&](bool done, bool failed)
                           {
                               EXPECT_EQ(done, !failed);
                               EXPECT_EQ(value == OD_T("poison"), failed);
                           });
    EXPECT_GE(getting, 1U);
}

TEST(OutOfMemory, aFailedAddThrowsAndChangesNothing)
{
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(plainFile("b{\na=1\n}\n")));
    const auto shared = parser.root()->data(0);
    auto& block = static_cast<CPBlock&>(*shared);
    const OdSharedPtr<CPItem> item(new CPBlock(OD_T("x")));
    const unsigned failures = failEachAllocation(unlessOutOfMemory([&] { block.add(item); }),
                                                 [&](bool done, bool failed)
                                                 {
                                                     EXPECT_EQ(done, !failed);
                                                     EXPECT_EQ(block.size(), failed ? 1U : 2U);
                                                 });
    EXPECT_GE(failures, 1U);
}
