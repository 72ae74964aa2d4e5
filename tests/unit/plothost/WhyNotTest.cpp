#include "plothost/WhyNot.h"

#include "pia_tree/CPIAOutput.h"
#include "plothost/ConfigurationKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SampleTree.h"
#include "tests/support/TemporaryFolder.h"

using namespace plothost;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
const InstalledDrivers withTheDriver = {{OD_T("Other"), OD_T("ACME hp-gl")}};

std::string whyNot(const CPBlock& root)
{
    return whyNotAConfiguration(root, withTheDriver);
}

std::string writeRaw(const TemporaryFolder& folder, std::string_view bytes, OdString& path)
{
    path = folder.addFile("x.pc3");
    std::ofstream(std::filesystem::path(path.c_str()), std::ios::binary) << bytes;
    return whyNotRead(path, withTheDriver);
}
} // namespace

TEST(WhyNot, aSoundFileHasNoReason)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    EXPECT_EQ(whyNot(*root), "");

    const TemporaryFolder folder;
    const OdString path = folder.at("sound.pc3");
    ASSERT_TRUE(CPIAOutput().write(*root, path.c_str()));
    EXPECT_EQ(whyNotRead(path, withTheDriver), "");
}

TEST(WhyNot, eachMissingRequiredKeyIsNamedWithItsBlock)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    for (const ConfigurationBlock& block : configurationBlocks())
        for (const ConfigurationKey& key : block.keys)
        {
            const OdString path = OdString(block.path) + OD_T("/") + key.name;
            const std::string why = whyNot(*sample::with(*root, path, nullptr));
            if (key.isRequired && block.isRequired)
                EXPECT_EQ(why, "key '" + odToUtf8(key.name) + "' is missing in block '" + odToUtf8(block.path) + "'");
            else
                EXPECT_EQ(why, "") << path;
        }
}

TEST(WhyNot, eachMissingBlockIsNamed)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    for (const ConfigurationBlock& block : configurationBlocks())
    {
        const std::string why = whyNot(*sample::with(*root, block.path, nullptr));
        if (block.isRequired)
            EXPECT_EQ(why, "block '" + odToUtf8(block.path) + "' is missing");
        else
            EXPECT_EQ(why, "");
    }
    EXPECT_EQ(whyNot(CPBlock(OD_T(""))), "block 'meta' is missing");
}

TEST(WhyNot, aKeyOfAnotherKindAndANumberThatIsNone)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    const auto with = [&root](OdStringView path, const blocks::Item& item)
    { return whyNot(*sample::with(*root, path, item)); };
    EXPECT_EQ(with(OD_T("meta/driver_type"), blocks::str(OD_T("driver_type"), OD_T("1"))),
              "key 'driver_type' in block 'meta' is of another kind; it should be a whole number");
    EXPECT_EQ(with(OD_T("io/pathname"), blocks::num(OD_T("pathname"), OD_T("1"))),
              "key 'pathname' in block 'io' is of another kind; it should be a text");
    EXPECT_EQ(with(OD_T("io/plot_to_file"), blocks::num(OD_T("plot_to_file"), OD_T("1"))),
              "key 'plot_to_file' in block 'io' is of another kind; it should be a TRUE or FALSE");
    EXPECT_EQ(with(OD_T("meta/driver_type"), blocks::num(OD_T("driver_type"), OD_T("1.5"))),
              "key 'driver_type' in block 'meta' is no whole number: '1.5'");
    EXPECT_EQ(with(OD_T("media/actual_printable_bounds_llx"),
                   blocks::num(OD_T("actual_printable_bounds_llx"), OD_T("?\x1B"))),
              "key 'actual_printable_bounds_llx' in block 'media' is no number: '?\\u001B'");
}

TEST(WhyNot, theFirstReasonInReadingOrderCounts)
{
    OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    root = sample::with(*root, OD_T("io/type"), nullptr);
    root = sample::with(*root, OD_T("media/size/name"), nullptr);
    EXPECT_EQ(whyNot(*root), "key 'name' is missing in block 'media/size'");
}

TEST(WhyNot, noPrinterWithTheDriver)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    EXPECT_EQ(whyNotAConfiguration(*root, {}), "no printer with driver 'Acme HP-GL'");
    EXPECT_EQ(whyNotAConfiguration(*root, {{OD_T("Acme")}}), "no printer with driver 'Acme HP-GL'");
    GmPlotCfg3 unbound = sample::configuration();
    unbound.m_meta.m_win_driver_name.empty();
    EXPECT_EQ(whyNotAConfiguration(*sample::tree(unbound), {}), "") << "it needs no driver";
}

TEST(WhyNot, damageIsNamedWithItsLine)
{
    const TemporaryFolder folder;
    OdString path;
    EXPECT_THAT(writeRaw(folder, "PIAFILEVERSION_2.0,PC3VER1\nmeta{\n what\n}\n", path),
                StartsWith("damaged in line 2 of its text: "));
    EXPECT_THAT(writeRaw(folder, "no such thing\n", path), testing::Not(HasSubstr("line 0")));
    EXPECT_NE(writeRaw(folder, "", path), "");
    EXPECT_NE(whyNotRead(folder.at("missing.pc3"), withTheDriver), "");
    EXPECT_NE(whyNotRead(OdString(), withTheDriver), "");
}

TEST(WhyNot, noDevMode)
{
    GmPlotCfg3 configuration = sample::configuration();
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 1801),
              "printer 'Plotter A' cannot be opened: there is none of that name (error 1801)");
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0), "no DEVMODE can be built of dmSize 220 and dmDriverExtra 2");

    auto& numbers = configuration.m_custom->m_numbers;
    auto& binaries = configuration.m_custom->m_binaries;
    binaries[OdString(OD_T("RawPrivateDeviceData"))] = OD_T("AB0");
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0),
              "key 'RawPrivateDeviceData' in block 'custom' has 3 digits; for "
              "dmDriverExtra 2 it takes 4");
    binaries.clear();
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0), "key 'RawPrivateDeviceData' is missing in block 'custom'");
    numbers[OdString(OD_T("dmSize"))] = OD_T("many");
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0), "key 'dmSize' is missing in block 'custom'");
    numbers[OdString(OD_T("dmDriverExtra"))] = OD_T("-1");
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0), "key 'dmDriverExtra' is missing in block 'custom'");
    configuration.m_meta.m_win_device_name.empty();
    EXPECT_EQ(whyNoDevMode(OdString(), configuration, 0), "the configuration names no Windows printer");

    configuration.m_custom = nullptr;
    const TemporaryFolder folder;
    OdString path;
    writeRaw(folder, "PIAFILEVERSION_2.0,PC3VER1\nmeta{\n}\n", path);
    EXPECT_EQ(whyNoDevMode(path, configuration, 0), "there is no block 'custom' with a DEVMODE");
    writeRaw(folder, "PIAFILEVERSION_2.0,PC3VER1\nmeta{\n}\ncustom{\n odd=1\n}\n", path);
    EXPECT_EQ(whyNoDevMode(path, configuration, 0),
              "block 'custom' is damaged and was left out, so there is no DEVMODE");
}

TEST(WhyNot, aPrinterThatDoesNotOpen)
{
    EXPECT_EQ(whyNotOpened(OD_T("P"), 5), "printer 'P' cannot be opened: access is denied (error 5)");
    EXPECT_EQ(whyNotOpened(OD_T("P"), 1722), "printer 'P' cannot be opened: its server does not answer (error 1722)");
    EXPECT_EQ(whyNotOpened(OD_T("P"), 42), "printer 'P' cannot be opened (error 42)");
}
