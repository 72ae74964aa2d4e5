#include "fuzz/OpenConfiguration.h"

#include "GarmPC3Editor/Model/BlockReader.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "spooler/DevModeView.h"
#include "tests/unit/pia/TreeTools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
struct WritableConfiguration : GmPlotCfg3
{
    explicit WritableConfiguration(const GmPlotCfg3& other) : GmPlotCfg3(other) {}
    using GmPlotCfg3::writeToBlock;
};

std::string written(const GmPlotCfg3& configuration, CPBlock& root)
{
    EXPECT_TRUE(WritableConfiguration(configuration).writeToBlock(root));
    return describe(root);
}

// These three are not written at 0, and then read as their defaults (quirk 1).
void forgetZeros(GmResColorMemNode& node)
{
    const GmResColorMemNode defaults;
    for (std::int32_t GmResColorMemNode::*member :
         {&GmResColorMemNode::m_ism_max, &GmResColorMemNode::m_ole_max, &GmResColorMemNode::m_preference})
        if (node.*member == 0)
            node.*member = defaults.*member;
}
} // namespace

void expectReadsBackEqual(const GmPlotCfg3& configuration)
{
    CPBlock first(OD_T(""));
    written(configuration, first);
    GmPlotCfg3 back;
    ASSERT_TRUE(fillSilently(back, first));

    GmPlotCfg3 expected = configuration;
    forgetZeros(expected.m_res_color_mem);
    CPBlock second(OD_T(""));
    CPBlock wanted(OD_T(""));
    EXPECT_EQ(written(back, second), written(expected, wanted));
    EXPECT_EQ(back.m_custom.isNull(), configuration.m_custom.isNull());
    EXPECT_EQ(back.m_media.m_destination.isNull(), configuration.m_media.m_destination.isNull());
}

void expectSoundDevMode(const GmPlotCfg3& configuration)
{
    const OdArray<unsigned char> bytes = configuration.toDevMode();
    if (bytes.isEmpty())
        return;
    const DevModeView view(std::span(bytes.begin(), bytes.end()));
    ASSERT_TRUE(view);
    EXPECT_EQ(view.bytes().size(), bytes.size());
    // Not even a public part that is longer than the fields has flags beyond them.
    EXPECT_EQ(devModeFlagsWithin(view.rawFlags(), view.size()), view.rawFlags());
    OdString stored;
    if (view.driverExtra() != 0)
    {
        ASSERT_TRUE(configuration.m_custom->getRawData(stored));
    }
    std::vector<unsigned char> expected(view.driverExtra());
    bytesFromHex(stored, expected);
    EXPECT_TRUE(std::ranges::equal(view.privateBytes(), expected));
}
