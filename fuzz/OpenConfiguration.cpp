#include "fuzz/OpenConfiguration.h"

#include "GarmPC3Editor/Model/HexText.h"
#include "GarmPC3Editor/Model/NodeTables.h"
#include "spooler/DevModeView.h"
#include "tests/unit/pia/TreeTools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
// Not written at 0 and then read as their defaults: quirk 1.
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
    CPBlock written(OD_T(""));
    ASSERT_TRUE(nodes::configuration.write(configuration, written));
    GmPlotCfg3 back;
    ASSERT_TRUE(nodes::configuration.read(back, written));
    CPBlock writtenBack(OD_T(""));
    ASSERT_TRUE(nodes::configuration.write(back, writtenBack));

    GmPlotCfg3 expected = configuration;
    forgetZeros(expected.m_res_color_mem);
    CPBlock writtenExpected(OD_T(""));
    ASSERT_TRUE(nodes::configuration.write(expected, writtenExpected));
    EXPECT_EQ(describe(writtenBack), describe(writtenExpected));
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
