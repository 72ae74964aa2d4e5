// What the model reports about a file that it cannot read. Linked without the code that queries printers.
#include "GarmPC3Editor/Model/BlockReader.h"
#include "pia_tree/CPIAParser.h"
#include "tests/support/Blocks.h"
#include "tests/support/ConfigurationKeys.h"

#include <gtest/gtest.h>

namespace
{
struct Reading
{
    bool succeeded = false;
    GmPlotCfg3 configuration;
    ReadReport report;
};

Reading read(const CPBlock& root)
{
    Reading reading;
    reading.succeeded = fill(reading.configuration, BlockReader(root, reading.report));
    return reading;
}

struct WritableConfiguration : GmPlotCfg3
{
    using GmPlotCfg3::writeToBlock;
};

OdSharedPtr<CPBlock> fullTree()
{
    WritableConfiguration configuration;
    configuration.m_media.m_destination = new GmDestinationNode;
    configuration.m_custom = new GmCustomNode;
    auto root = blocks::make(OD_T(""));
    EXPECT_TRUE(configuration.writeToBlock(*root));
    return root;
}

void expectFault(const Fault& fault, FaultCode code, OdStringView block, OdStringView key)
{
    EXPECT_EQ(fault.stage, FaultStage::read);
    EXPECT_EQ(fault.code, code);
    EXPECT_EQ(fault.block, block);
    EXPECT_EQ(fault.key, key);
}
} // namespace

TEST(Fault, itsCodesKeepTheirNumbers)
{
    EXPECT_EQ(static_cast<int>(FaultCode::none), 0);
    EXPECT_EQ(static_cast<int>(FaultCode::badFile), 1);
    EXPECT_EQ(static_cast<int>(FaultCode::missingBlock), 2);
    EXPECT_EQ(static_cast<int>(FaultCode::missingKey), 3);
    EXPECT_EQ(static_cast<int>(FaultCode::otherKind), 4);
    EXPECT_EQ(static_cast<int>(FaultCode::notANumber), 5);
    EXPECT_EQ(static_cast<int>(FaultCode::badCustomItem), 6);
    EXPECT_EQ(static_cast<int>(FaultCode::noPrinterWithDriver), 7);
    EXPECT_EQ(static_cast<int>(FaultCode::noCustomData), 8);
    EXPECT_EQ(static_cast<int>(FaultCode::noPrinterName), 9);
    EXPECT_EQ(static_cast<int>(FaultCode::badSizes), 10);
    EXPECT_EQ(static_cast<int>(FaultCode::badPrivateLength), 11);
    EXPECT_EQ(static_cast<int>(FaultCode::printerNotOpened), 12);
    EXPECT_EQ(static_cast<int>(FaultCode::badDevMode), 13);
    EXPECT_EQ(static_cast<int>(FaultCode::otherPrinter), 14);
    EXPECT_EQ(static_cast<int>(FaultCode::otherSizes), 15);
    EXPECT_EQ(static_cast<int>(FaultCode::unlistedPaper), 16);
    EXPECT_EQ(static_cast<int>(FaultCode::noDefaultDevMode), 17);
    EXPECT_EQ(static_cast<int>(FaultCode::noPrivateBytes), 18);
}

TEST(Fault, aReadThatSucceedsReportsNothing)
{
    const Reading reading = read(*fullTree());
    EXPECT_TRUE(reading.succeeded);
    expectFault(reading.report.fault, FaultCode::none, {}, {});
    EXPECT_TRUE(reading.report.leftOut.empty());
}

TEST(Fault, eachMissingKeyIsReportedWithItsBlock)
{
    const auto root = fullTree();
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
    {
        SCOPED_TRACE(key.path());
        const Reading reading = read(*blocks::withAt(*root, key.path(), nullptr));
        EXPECT_EQ(reading.succeeded, !key.isRequired);
        if (key.isRequired && key.key.empty())
            expectFault(reading.report.fault, FaultCode::missingBlock, key.block, {});
        else if (key.isRequired)
            expectFault(reading.report.fault, FaultCode::missingKey, key.block, key.key);
        else
            expectFault(reading.report.fault, FaultCode::none, {}, {});
    }
}

TEST(Fault, anotherKindIsReportedWithTheExpectedOne)
{
    const auto root = fullTree();
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
    {
        if (!key.isRequired || key.key.empty())
            continue;
        SCOPED_TRACE(key.path());
        const Reading reading = read(*blocks::withAt(*root, key.path(), blocks::bin(key.key, OD_T("00"))));
        expectFault(reading.report.fault, FaultCode::otherKind, key.block, key.key);
        EXPECT_EQ(reading.report.fault.expected, key.kind);
    }
}

TEST(Fault, aBadNumberIsReportedAsStored)
{
    const auto root = fullTree();
    const Reading whole = read(*blocks::withAt(*root, OD_T("io/type"), blocks::num(OD_T("type"), OD_T("1.5"))));
    expectFault(whole.report.fault, FaultCode::notANumber, OD_T("io"), OD_T("type"));
    EXPECT_EQ(whole.report.fault.expected, ValueKind::wholeNumber);
    EXPECT_EQ(whole.report.fault.text, OD_T("1.5"));
    const Reading number = read(*blocks::withAt(*root, OD_T("media/size/media_description/printable_area"),
                                                blocks::num(OD_T("printable_area"), OD_T("large"))));
    expectFault(number.report.fault, FaultCode::notANumber, OD_T("media/size/media_description"),
                OD_T("printable_area"));
    EXPECT_EQ(number.report.fault.expected, ValueKind::number);
}

TEST(Fault, aDroppedBlockIsReportedAsLeftOut)
{
    const auto root = fullTree();
    const Reading noName = read(*blocks::withAt(*root, OD_T("media/destination/name"), nullptr));
    EXPECT_TRUE(noName.succeeded);
    expectFault(noName.report.fault, FaultCode::none, {}, {});
    ASSERT_EQ(noName.report.leftOut.size(), 1U);
    expectFault(noName.report.leftOut[0], FaultCode::missingKey, OD_T("media/destination"), OD_T("name"));

    const auto item = blocks::make(OD_T("7"), {blocks::str(OD_T("name"), OD_T("a"))});
    const Reading badItem = read(*blocks::withAt(*root, OD_T("custom"), blocks::make(OD_T("custom"), {item})));
    EXPECT_TRUE(badItem.succeeded);
    ASSERT_EQ(badItem.report.leftOut.size(), 1U);
    expectFault(badItem.report.leftOut[0], FaultCode::badCustomItem, OD_T("custom"), OD_T("7"));
}

TEST(Fault, aDamagedFileIsReportedWithItsLine)
{
    CPIAParser parser;
    EXPECT_FALSE(parser.parse("PIAFILEVERSION_2.0,PC3VER1\nmeta{\n what\n}\n"));
    GmPlotCfg3 configuration;
    ReadReport report;
    EXPECT_FALSE(fill(configuration, parser, report));
    expectFault(report.fault, FaultCode::badFile, {}, {});
    EXPECT_EQ(report.fault.line, 2U);
    EXPECT_STREQ(report.fault.reason, parser.reason());
    EXPECT_STRNE(report.fault.reason, "");
}
