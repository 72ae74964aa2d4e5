#include "common/Explanation.h"

#include "GarmPC3Editor/Printing/Conversions.h"
#include "common/FaultText.h"
#include "pia_tree/CPIAOutput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "SampleTree.h"
#include "tests/support/ConfigurationKeys.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

using namespace apps;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
class Explanation : public PrinterRoomTest
{
protected:
    Explanation() { room.add({.name = OD_T("Plotter A"), .driver = OD_T("ACME hp-gl"), .papers = {{9, OD_T("A4")}}}); }

    // The reason for a file with this content; "" if it can be read.
    std::string ofTree(const CPBlock& root) const
    {
        EXPECT_TRUE(CPIAOutput().write(root, m_path.c_str()));
        return whyNotRead(m_path).value_or("");
    }
    std::string ofTree(const OdSharedPtr<CPBlock>& root) const { return ofTree(*root); }

    std::string ofBytes(std::string_view bytes) const
    {
        return whyNotRead(m_folder.addFile("x.pc3", bytes)).value_or("");
    }

    std::string ofDevMode(const GmPlotCfg3& configuration) const
    {
        EXPECT_TRUE(configuration.write(m_path));
        return whyNoDevMode(m_path).value_or("");
    }

    const TemporaryFolder m_folder;
    const OdString m_path = m_folder.at("x.pc3");
    const OdSharedPtr<CPBlock> m_sound = sample::tree(sample::configuration());
};
} // namespace

TEST_F(Explanation, aSoundFileHasNoReason)
{
    EXPECT_EQ(ofTree(m_sound), "");
    EXPECT_EQ(ofDevMode(sample::configuration()), "");
}

TEST_F(Explanation, eachMissingKeyIsNamedWithItsBlock)
{
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
    {
        if (key.block == OD_T("custom"))
            continue;
        const std::string why = ofTree(blocks::withAt(*m_sound, key.path(), nullptr));
        const std::string block = "block '" + odToUtf8(key.block) + "'";
        if (!key.isRequired)
            EXPECT_EQ(why, "") << key.path();
        else if (key.key.empty())
            EXPECT_EQ(why, block + " is missing");
        else
            EXPECT_EQ(why, "key '" + odToUtf8(key.key) + "' is missing in " + block);
    }
    EXPECT_EQ(ofTree(CPBlock(OD_T(""))), "block 'meta' is missing");
}

TEST_F(Explanation, wrongKindOfValueAndBadNumberAreReported)
{
    const auto with = [this](OdStringView path, const blocks::Item& item)
    { return ofTree(blocks::withAt(*m_sound, path, item)); };
    EXPECT_EQ(with(OD_T("meta/driver_type"), blocks::str(OD_T("driver_type"), OD_T("1"))),
              "key 'driver_type' in block 'meta' has the wrong kind of value; it should be a whole number");
    EXPECT_EQ(with(OD_T("io/pathname"), blocks::num(OD_T("pathname"), OD_T("1"))),
              "key 'pathname' in block 'io' has the wrong kind of value; it should be text");
    EXPECT_EQ(with(OD_T("io/plot_to_file"), blocks::num(OD_T("plot_to_file"), OD_T("1"))),
              "key 'plot_to_file' in block 'io' has the wrong kind of value; it should be TRUE or FALSE");
    EXPECT_EQ(with(OD_T("meta/driver_type"), blocks::num(OD_T("driver_type"), OD_T("1.5"))),
              "key 'driver_type' in block 'meta' is not a whole number: '1.5'");
    EXPECT_EQ(with(OD_T("media/actual_printable_bounds_llx"),
                   blocks::num(OD_T("actual_printable_bounds_llx"), OD_T("?\x1B"))),
              "key 'actual_printable_bounds_llx' in block 'media' is not a number: '?\\u001B'");
}

TEST_F(Explanation, theFirstReasonInReadingOrderCounts)
{
    OdSharedPtr<CPBlock> root = blocks::withAt(*m_sound, OD_T("io/type"), nullptr);
    root = blocks::withAt(*root, OD_T("media/size/name"), nullptr);
    EXPECT_EQ(ofTree(root), "key 'name' is missing in block 'media/size'");
}

TEST_F(Explanation, noPrinterWithTheDriver)
{
    GmPlotCfg3 configuration = sample::configuration();
    configuration.m_meta.m_win_driver_name = OD_T("Acme");
    EXPECT_EQ(ofTree(sample::tree(configuration)), "no printer with driver 'Acme'");
    EXPECT_EQ(ofDevMode(configuration), "no printer with driver 'Acme'");
    configuration.m_meta.m_win_driver_name.empty();
    EXPECT_EQ(ofTree(sample::tree(configuration)), "") << "it needs no driver";
}

TEST_F(Explanation, damageIsNamedWithItsLine)
{
    EXPECT_THAT(ofBytes("PIAFILEVERSION_2.0,PC3VER1\nmeta{\n what\n}\n"),
                StartsWith("damaged in line 2 of its text: "));
    EXPECT_THAT(ofBytes("no such thing\n"), testing::Not(HasSubstr("line 0")));
    EXPECT_NE(ofBytes(""), "");
    EXPECT_NE(whyNotRead(m_folder.at("missing.pc3")).value_or(""), "");
    EXPECT_NE(whyNotRead(OdString()).value_or(""), "");
}

TEST_F(Explanation, noDevMode)
{
    GmPlotCfg3 configuration = sample::configuration();
    auto& numbers = configuration.m_custom->m_numbers;
    auto& binaries = configuration.m_custom->m_binaries;
    numbers[OdString(OD_T("dmSize"))] = OD_T("40");
    EXPECT_EQ(ofDevMode(configuration), "no DEVMODE can be built with dmSize 40 and dmDriverExtra 2");
    numbers[OdString(OD_T("dmSize"))] = OD_T("220");
    binaries[OdString(OD_T("RawPrivateDeviceData"))] = OD_T("AB0");
    EXPECT_EQ(ofDevMode(configuration), "key 'RawPrivateDeviceData' in block 'custom' has 3 digits; for "
                                        "dmDriverExtra 2 it takes 4");
    binaries.clear();
    EXPECT_EQ(ofDevMode(configuration), "key 'RawPrivateDeviceData' is missing in block 'custom'");
    numbers.erase(OdString(OD_T("dmSize")));
    EXPECT_EQ(ofDevMode(configuration), "key 'dmSize' is missing in block 'custom'");
    numbers.erase(OdString(OD_T("dmDriverExtra")));
    EXPECT_EQ(ofDevMode(configuration), "key 'dmDriverExtra' is missing in block 'custom'");
    configuration.m_meta.m_win_device_name.empty();
    configuration.m_meta.m_win_driver_name.empty();
    EXPECT_EQ(ofDevMode(configuration), "the configuration names no Windows printer");

    configuration.m_custom = nullptr;
    EXPECT_EQ(ofDevMode(configuration), "there is no block 'custom' with a DEVMODE");
    const auto odd = blocks::make(OD_T("custom"), {blocks::make(OD_T("0"))});
    OdSharedPtr<CPBlock> root = sample::tree(configuration);
    root->add(odd);
    EXPECT_EQ(ofTree(root), "") << "it is read without the block";
    EXPECT_EQ(whyNoDevMode(m_path), "block 'custom' is damaged and was left out, so there is no DEVMODE");
}

// The numbers of block "custom" are read like "%d", so these are all 8.
TEST_F(Explanation, aStoredNumberMeansWhatTheModelReads)
{
    GmPlotCfg3 configuration = sample::configuration();
    const auto withExtra = [&](const OdChar* text)
    {
        configuration.m_custom->m_numbers[OdString(OD_T("dmDriverExtra"))] = text;
        return ofDevMode(configuration);
    };
    for (const OdChar* eight : {OD_T("8"), OD_T(" 8"), OD_T("+8"), OD_T("8x"), OD_T("4294967304")})
        EXPECT_EQ(withExtra(eight), "key 'RawPrivateDeviceData' in block 'custom' has 4 digits; for "
                                    "dmDriverExtra 8 it takes 16")
            << OdString(eight);
    EXPECT_EQ(withExtra(OD_T("many")), "key 'dmDriverExtra' in block 'custom' is not a whole number: 'many'");
    EXPECT_EQ(withExtra(OD_T("-1")), "no DEVMODE can be built with dmSize 220 and dmDriverExtra -1");
    EXPECT_EQ(withExtra(OD_T("65536")), "no DEVMODE can be built with dmSize 220 and dmDriverExtra 65536");
}

TEST_F(Explanation, noNewConfiguration)
{
    EXPECT_EQ(whyNotCreated(OD_T("Plotter A")), std::nullopt);
    EXPECT_EQ(whyNotCreated(OD_T("P")),
              "printer 'P' cannot be opened: there is no printer with that name (error 1801)");
    room.add({.name = OD_T("Plain"), .driver = OD_T("D"), .papers = {{9, OD_T("A4")}}, .driverExtra = 0});
    EXPECT_EQ(whyNotCreated(OD_T("Plain")),
              "the DEVMODE of printer 'Plain' has no private bytes, which a configuration needs");
}

TEST(FaultText, aPrinterThatDoesNotOpen)
{
    EXPECT_EQ(whyNotOpened(OD_T("P"), 5), "printer 'P' cannot be opened: access is denied (error 5)");
    EXPECT_EQ(whyNotOpened(OD_T("P"), 1722), "printer 'P' cannot be opened: its server does not answer (error 1722)");
    EXPECT_EQ(whyNotOpened(OD_T("P"), 42), "printer 'P' cannot be opened (error 42)");
}

TEST(FaultText, everyCodeHasASentenceOfItsOwn)
{
    std::set<std::string> sentences;
    Fault fault;
    fault.reason = "it is not a PC3 file";
    fault.block = OD_T("custom");
    fault.key = OD_T("dmSize");
    fault.text = OD_T("Plotter A");
    fault.systemError = 5;
    int codes = 0;
    for (; codes <= static_cast<int>(FaultCode::noPrivateBytes); ++codes)
    {
        fault.code = static_cast<FaultCode>(codes);
        sentences.insert(textOf(fault));
    }
    EXPECT_EQ(sentences.size(), static_cast<std::size_t>(codes));
    EXPECT_TRUE(sentences.contains("")) << "only where there is no fault";
}

TEST_F(Explanation, whyADeviceModeIsNotImported)
{
    GmPlotCfg3 configuration = sample::configuration();
    const auto reason = [&](const DevModeView& devMode, const OdString& printer)
    {
        bool modified = false;
        Fault fault;
        EXPECT_FALSE(importDevMode(configuration, devMode, printer, false, modified, fault));
        EXPECT_EQ(fault.stage, FaultStage::importDevMode);
        return textOf(fault);
    };
    EXPECT_EQ(reason(DevModeView(), OD_T("Plotter A")), "the bytes are not a DEVMODE");

    Fault none;
    const OdArray<unsigned char> own = makeDevMode(configuration, none);
    std::vector<unsigned char> bytes(own.begin(), own.end());
    EXPECT_EQ(reason(DevModeView(bytes), OD_T("Plotter B")), "the DEVMODE is not for printer 'Plotter A'");
    EXPECT_EQ(reason(DevModeView(bytes), OD_T("Plotter A")), "key 'dmSpecVersion' is missing in block 'custom'");

    DEVMODEW fields;
    std::memcpy(&fields, bytes.data(), sizeof fields);
    fields.dmPaperSize = 8;
    fields.dmFields |= DM_PAPERSIZE;
    std::memcpy(bytes.data(), &fields, sizeof fields);
    EXPECT_EQ(reason(DevModeView(bytes), OD_T("Plotter A")), "the printer does not list its paper with code 8");

    fields.dmDriverExtra = 1;
    std::memcpy(bytes.data(), &fields, sizeof fields);
    EXPECT_EQ(reason(DevModeView(bytes), OD_T("Plotter A")),
              "the DEVMODE has dmSize 220 and dmDriverExtra 1; the configuration needs dmSize 220 and dmDriverExtra 2");
}
