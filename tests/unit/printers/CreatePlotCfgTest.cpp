#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/PrinterRoomTest.h"

#include <algorithm>
#include <cstring>

using room::Call;

namespace
{
class CreatePlotCfg : public PrinterRoomTest
{
protected:
    room::Printer& printer = room.add({.name = OD_T("Plotter A"),
                                       .driver = OD_T("Acme HP-GL"),
                                       .port = OD_T("FILE:"),
                                       .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}, {300, OD_T("Roll 24 in")}},
                                       .driverExtra = 4});

    // Flags and paper of the driver's default.
    void propose(DWORD clear, short code, OdStringView form)
    {
        printer.tune = [clear, code, form = OdString(form)](DEVMODEW& dm)
        {
            dm.dmFields &= ~clear;
            dm.dmPaperSize = code;
            std::ranges::fill(dm.dmFormName, OdChar{0});
            std::ranges::copy(form.view().substr(0, 32), dm.dmFormName);
        };
    }

    // The paper's name in a new configuration; "null" if there is none.
    static OdString paperOfNew()
    {
        const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
        return cfg ? cfg->m_media.m_size.m_name : OdString(OD_T("null"));
    }
};

OdString number(const GmPlotCfg3& cfg, const OdChar* key)
{
    const auto found = cfg.m_custom->m_numbers.find(key);
    return found == cfg.m_custom->m_numbers.end() ? OdString(OD_T("missing")) : found->second;
}
} // namespace

TEST_F(CreatePlotCfg, aNewConfigurationIsBoundToItsPrinterByName)
{
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_EQ(cfg.refCount(), 1);
    const GmMetaNode& meta = cfg->m_meta;
    EXPECT_EQ(meta.m_win_device_name, OD_T("Plotter A"));
    EXPECT_EQ(meta.m_short_net_name, OD_T("Plotter A"));
    EXPECT_EQ(meta.m_friendly_net_name, OD_T("Plotter A"));
    EXPECT_EQ(meta.m_driver_pathname, OD_T("gdiplot7.hdi"));
    EXPECT_EQ(meta.m_driver_version, OD_T("not specified"));
    EXPECT_EQ(meta.m_driver_tag_line, OD_T("Windows System Driver from Autodesk"));
    EXPECT_EQ(meta.m_toolkit_version, 1);
    EXPECT_EQ(meta.m_driver_type, 1);
    EXPECT_EQ(meta.m_win_driver_name, OD_T("Acme HP-GL"));
    for (const OdString* name : {&meta.m_canonical_family_name, &meta.m_canonical_model_name,
                                 &meta.m_localized_family_name, &meta.m_localized_model_name})
        EXPECT_EQ(*name, OD_T("System"));
    EXPECT_TRUE(cfg->m_io.m_plot_to_file);
}

TEST_F(CreatePlotCfg, theNameIsTheOneAskedForInItsLetterCase)
{
    const auto cfg = GmPlotCfg3::create(OD_T("PLOTTER a"));
    ASSERT_TRUE(cfg);
    EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("PLOTTER a"));
}

TEST_F(CreatePlotCfg, sizesVersionAndPrivateBytesAreThoseOfTheDriversDefault)
{
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    ASSERT_TRUE(cfg->m_custom);
    EXPECT_EQ(number(*cfg, OD_T("dmSize")), OD_T("220"));
    EXPECT_EQ(number(*cfg, OD_T("dmDriverExtra")), OD_T("4"));
    EXPECT_EQ(number(*cfg, OD_T("dmSpecVersion")), OD_T("1025"));
    OdString raw;
    EXPECT_TRUE(cfg->m_custom->getRawData(raw));
    EXPECT_EQ(raw, OD_T("01020304"));
    EXPECT_EQ(cfg->m_devModeFields, 0x1EF1FU);
}

TEST_F(CreatePlotCfg, theVersionIsStoredAlsoWhenTheDefaultFlagsNoField)
{
    propose(0xFFFFFFFF, 9, OD_T(""));
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_EQ(number(*cfg, OD_T("dmSpecVersion")), OD_T("1025"));
    EXPECT_EQ(cfg->m_media.m_size.m_name, OD_T(""));
}

TEST_F(CreatePlotCfg, boundsComeFromADeviceContextThatGetsNoDriverNameYet)
{
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_NEAR(cfg->m_media.m_size.m_media_description.m_media_bounds.m_urx, 4960 * 25.4 / 600, 1e-9);
    const auto calls = room.calls();
    const auto context = std::ranges::find(calls, Call::createDC, &room::CallRecord::call);
    ASSERT_NE(context, calls.end());
    EXPECT_FALSE(context->null);
    EXPECT_EQ(context->text, OD_T(""));
    EXPECT_EQ(context->devMode.size(), 224U);
}

TEST_F(CreatePlotCfg, withoutADeviceContextThereIsAConfigurationWithoutBounds)
{
    room.refuse(Call::createDC);
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_TRUE(cfg->m_media.emptyBounds());
}

TEST_F(CreatePlotCfg, aPrinterThatCannotBeOpenedGivesNone)
{
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("nobody")));
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("")));
    room.refuse(Call::openPrinter, OD_T("Plotter A"));
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A")));
}

TEST_F(CreatePlotCfg, aDriverWithoutDefaultDeviceModeGivesNone)
{
    for (const LONG size : {0, -1})
    {
        printer.lies = {.sizeAnswer = size};
        EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A"))) << size;
    }
    printer.lies = {.fillAnswer = 0};
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A")));
    printer.lies = {.fillAnswer = -1, .fillWritesNothing = true};
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A")));
}

TEST_F(CreatePlotCfg, aDefaultThatWasFilledIsUsedAlsoWhenTheAnswerIsNegative)
{
    printer.lies = {.fillAnswer = -1};
    EXPECT_TRUE(GmPlotCfg3::create(OD_T("Plotter A")));
}

TEST_F(CreatePlotCfg, aDefaultThatLiesAboutItsSizesGivesNone)
{
    printer.tune = [](DEVMODEW& dm) { dm.dmDriverExtra = 65535; };
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A")));
    for (const WORD size : {WORD{0}, WORD{40}, WORD{75}})
    {
        printer.tune = [size](DEVMODEW& dm) { dm.dmSize = size; };
        EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A"))) << size;
    }
}

TEST_F(CreatePlotCfg, aDefaultWithAShortPublicPartIsUsedAsFarAsItGoes)
{
    // 80 bytes of public part, then the private ones: orientation and paper code are there, nothing after them.
    std::vector<BYTE> block(84, BYTE{0x42});
    const WORD sizes[] = {0x0401, 5, 80, 4};
    std::memcpy(block.data() + offsetof(DEVMODEW, dmSpecVersion), sizes, sizeof sizes);
    const DWORD fields = DM_PAPERSIZE | DM_FORMNAME | DM_MEDIATYPE;
    std::memcpy(block.data() + offsetof(DEVMODEW, dmFields), &fields, sizeof fields);
    const WORD values[] = {DMORIENT_PORTRAIT, 8};
    std::memcpy(block.data() + offsetof(DEVMODEW, dmOrientation), values, sizeof values);
    printer.rawBlock = block;
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_EQ(cfg->m_media.m_size.m_name, OD_T("A3"));
    EXPECT_EQ(number(*cfg, OD_T("dmSize")), OD_T("80"));
    EXPECT_EQ(number(*cfg, OD_T("dmMediaType")), OD_T("missing"));
    OdString raw;
    cfg->m_custom->getRawData(raw);
    EXPECT_EQ(raw, OD_T("42424242"));
}

// A driver without private bytes has nothing to compare, and no item is added for a zero: quirk 35.
TEST_F(CreatePlotCfg, aDriverWithoutPrivateBytesGivesNone)
{
    printer.driverExtra = 0;
    EXPECT_FALSE(GmPlotCfg3::create(OD_T("Plotter A")));
    EXPECT_EQ(room.count(Call::createDC), 0);
}

TEST_F(CreatePlotCfg, aDriverWithAsManyPrivateBytesAsThereCanBeGivesOne)
{
    printer.driverExtra = 65535;
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    EXPECT_EQ(number(*cfg, OD_T("dmDriverExtra")), OD_T("65535"));
}

TEST_F(CreatePlotCfg, aListedCodeWinsOverTheFormNameOnceItIsTakenOver)
{
    propose(0, 8, OD_T("A4"));
    EXPECT_EQ(paperOfNew(), OD_T("A3"));
}

TEST_F(CreatePlotCfg, aSystemCodeThatTheDriverDoesNotListGivesNone)
{
    propose(0, 11, OD_T("A4"));
    EXPECT_EQ(paperOfNew(), OD_T("null"));
}

TEST_F(CreatePlotCfg, aKnownFormNameNamesThePaperOfADriversOwnCode)
{
    propose(0, 300, OD_T("roll 24 IN"));
    EXPECT_EQ(paperOfNew(), OD_T("roll 24 IN"));
    propose(0, 999, OD_T("Roll 24 in"));
    EXPECT_EQ(paperOfNew(), OD_T("Roll 24 in"));
}

TEST_F(CreatePlotCfg, aDriversOwnCodeWithoutFormNameIsNamedByItsNumber)
{
    propose(DM_FORMNAME, 256, OD_T("ignored"));
    EXPECT_EQ(paperOfNew(), OD_T("User256"));
    propose(DM_FORMNAME, 300, OD_T("ignored"));
    EXPECT_EQ(paperOfNew(), OD_T("User300")); // even if it is listed
}

TEST_F(CreatePlotCfg, everyCallMayFail)
{
    for (const LONG documentFailure : {-1, 0})
    {
        room.setDocumentFailure(documentFailure);
        int nulls = 0;
        const int failures = failEachCall(
            room, [] { return GmPlotCfg3::create(OD_T("Plotter A")); },
            [&nulls](const OdSharedPtr<GmPlotCfg3>& cfg, bool failed)
            {
                EXPECT_TRUE(failed || cfg);
                if (!cfg)
                {
                    ++nulls;
                    return;
                }
                EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("Plotter A"));
                EXPECT_EQ(number(*cfg, OD_T("dmDriverExtra")), OD_T("4"));
                EXPECT_FALSE(cfg->toDevMode().isEmpty());
            });
        EXPECT_GT(failures, 20);
        // At least opening the printer, two calls for the default, and opening it for the import.
        EXPECT_GE(nulls, 5);
        EXPECT_LT(nulls, failures);
    }
}

TEST_F(CreatePlotCfg, everyCallMayThrow)
{
    const int thrown = throwFromEachCall(
        room, [] { return GmPlotCfg3::create(OD_T("Plotter A")); },
        [](const OdSharedPtr<GmPlotCfg3>& cfg, bool spoiled) { EXPECT_EQ(cfg.isNull(), spoiled); });
    EXPECT_GT(thrown, 20);
}

TEST(CreatePlotCfgRace, thePrinterMayGoAwayBeforeAnyCall)
{
    // The printer vanishes in the first call, in the second, ... until creation succeeds.
    for (int n = 1;; ++n)
    {
        PrinterRoom fresh;
        fresh.add({.name = OD_T("P"), .driver = OD_T("D"), .port = OD_T("LPT1:"), .papers = {{9, OD_T("A4")}}});
        int left = n;
        for (const Call call : {Call::openPrinter, Call::getPrinter, Call::getPrinterDriver, Call::documentProperties,
                                Call::deviceCapabilities, Call::createDC, Call::getDeviceCaps})
            fresh.onCall(call, OD_T(""),
                         [&](const room::CallRecord&)
                         {
                             if (--left == 0)
                                 fresh.remove(OD_T("P"));
                         });
        const auto cfg = GmPlotCfg3::create(OD_T("P"));
        EXPECT_EQ(fresh.openHandles(), 0);
        EXPECT_EQ(fresh.openContexts(), 0);
        EXPECT_EQ(fresh.strayCloses(), 0);
        if (left > 0)
        {
            EXPECT_TRUE(cfg);
            EXPECT_GT(n, 20);
            break;
        }
    }
}
