// The paper of a DEVMODEW, imported by code or by form name.

#include "tests/unit/devmode/DevModeFixture.h"

#include <cmath>
#include <optional>

namespace
{
class TakeOverPaper : public DevModeTest
{
protected:
    static Block paper(DWORD flags, short code, const OdChar* formName)
    {
        Block block = driversBlock();
        block.fields.dmFields = (block.fields.dmFields & ~DWORD{DM_PAPERSIZE | DM_FORMNAME}) | flags;
        block.fields.dmPaperSize = code;
        block.setFormName(formName);
        return block;
    }

    const OdString& name() const { return settled.m_media.m_size.m_name; }
};

constexpr DWORD both = DM_PAPERSIZE | DM_FORMNAME;
} // namespace

TEST_F(TakeOverPaper, aListedSystemCodeBringsItsName)
{
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, 8, OD_T(""))).succeeded);
    EXPECT_EQ(name(), OD_T("A3"));
}

TEST_F(TakeOverPaper, aListedSystemCodeWinsOverAFormName)
{
    EXPECT_TRUE(takeOver(settled, paper(both, 8, OD_T("A4"))).succeeded);
    EXPECT_EQ(name(), OD_T("A3"));
    EXPECT_TRUE(takeOver(settled, paper(both, 9, OD_T("A3")), plotter, true).succeeded);
    EXPECT_EQ(name(), OD_T("A4")) << "also while a configuration is created";
}

TEST_F(TakeOverPaper, aSystemCodeThatIsNotListedFails)
{
    for (const short code : {short{10}, short{0}, short{255}, short{-2}, short{-32767}})
    {
        const OdString before = name();
        const Outcome outcome = takeOver(settled, paper(both, code, OD_T("A3")));
        EXPECT_FALSE(outcome.succeeded) << code;
        EXPECT_EQ(name(), before) << code;
    }
}

// As signed numbers they are below 256; the list is searched by their 16 bits.
TEST_F(TakeOverPaper, aListedCodeAbove32767IsFoundAsASystemCode)
{
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, -1, OD_T(""))).succeeded);
    EXPECT_EQ(name(), OD_T("Last"));
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, -32768, OD_T(""))).succeeded);
    EXPECT_EQ(name(), OD_T("Half"));
}

TEST_F(TakeOverPaper, aDriversOwnCodeIsAUserPaperEvenWhenListed)
{
    for (const auto& [code, expected] : {std::pair(short{256}, OD_T("User256")), std::pair(short{257}, OD_T("User257")),
                                         std::pair(short{32767}, OD_T("User32767"))})
    {
        EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, code, OD_T("A3"))).succeeded);
        EXPECT_EQ(name(), expected);
    }
}

TEST_F(TakeOverPaper, aKnownFormNameReplacesAUserPaper)
{
    EXPECT_TRUE(takeOver(settled, paper(both, 257, OD_T("roll 257"))).succeeded);
    EXPECT_EQ(name(), OD_T("roll 257")) << "as the block spells it";
    EXPECT_TRUE(takeOver(settled, paper(both, 400, OD_T("A3"))).succeeded);
    EXPECT_EQ(name(), OD_T("A3"));
}

TEST_F(TakeOverPaper, anUnknownFormNameLeavesTheUserPaper)
{
    EXPECT_TRUE(takeOver(settled, paper(both, 257, OD_T("Roll 258"))).succeeded);
    EXPECT_EQ(name(), OD_T("User257"));
}

TEST_F(TakeOverPaper, aFormNameAloneCountsWhenItIsKnown)
{
    EXPECT_TRUE(takeOver(settled, paper(DM_FORMNAME, 8, OD_T("A4"))).succeeded);
    EXPECT_EQ(name(), OD_T("A4")) << "the first of the list";
    EXPECT_TRUE(takeOver(settled, paper(DM_FORMNAME, 9, OD_T("A3"))).succeeded);
    EXPECT_EQ(name(), OD_T("A3"));
    EXPECT_EQ(takeOver(settled, paper(DM_FORMNAME, 9, OD_T("nothing known"))), (Outcome{true, true}));
    EXPECT_EQ(name(), OD_T(""));
}

TEST_F(TakeOverPaper, withoutAnyPaperFlagTheNameBecomesEmpty)
{
    EXPECT_EQ(takeOver(settled, paper(0, 8, OD_T("A3"))), (Outcome{true, true}));
    EXPECT_EQ(name(), OD_T(""));
    EXPECT_EQ(takeOver(settled, paper(0, 8, OD_T("A3"))), (Outcome{true, false}));
}

// Real drivers fill all 32 characters; the name then ends with the field.
TEST_F(TakeOverPaper, aFormNameWithoutTerminatorEndsWithItsField)
{
    Block block = paper(DM_FORMNAME, 0, OD_T(""));
    const OdString full(OD_T("Form name of thirty-two letters!"));
    ASSERT_EQ(full.getLength(), 32);
    addPaper(600, full);
    std::copy_n(full.c_str(), 32, block.fields.dmFormName);
    block.fields.dmLogPixels = 0x4141;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(name(), full);
}

TEST_F(TakeOverPaper, aPaperNameWithoutTerminatorEndsWithItsSlot)
{
    const OdString full(OD_T("1234567890123456789012345678901234567890123456789012345678901234"));
    ASSERT_EQ(full.getLength(), 64);
    addPaper(200, full);
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, 200, OD_T(""))).succeeded);
    EXPECT_EQ(name(), full);
}

TEST_F(TakeOverPaper, aCodeListedTwiceBringsItsFirstName)
{
    addPaper(8, OD_T("A3 again"));
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, 8, OD_T(""))).succeeded);
    EXPECT_EQ(name(), OD_T("A3"));
}

TEST_F(TakeOverPaper, aPrinterWithoutPapersKnowsNoSystemCode)
{
    m_printer.papers.clear();
    EXPECT_FALSE(takeOver(settled, paper(DM_PAPERSIZE, 9, OD_T(""))).succeeded);
    EXPECT_TRUE(takeOver(settled, paper(both, 300, OD_T("A4"))).succeeded);
    EXPECT_EQ(name(), OD_T("User300"));
}

TEST_F(TakeOverPaper, anotherNameBringsTheBoundsOfTheDevice)
{
    settled.m_media.m_actual_printable_bounds_llx = 1;
    settled.m_media.m_size.m_media_description.m_media_bounds.m_urx = 1;
    EXPECT_EQ(takeOver(settled, paper(both, 8, OD_T(""))), (Outcome{true, true}));
    EXPECT_DOUBLE_EQ(settled.m_media.m_actual_printable_bounds_llx, 100 * 25.4 / 600);
    EXPECT_DOUBLE_EQ(settled.m_media.m_size.m_media_description.m_media_bounds.m_urx, 4960 * 25.4 / 600);
}

TEST_F(TakeOverPaper, theSameNameKeepsTheBounds)
{
    settled.m_media.m_actual_printable_bounds_llx = 1;
    EXPECT_EQ(takeOver(settled, driversBlock()), (Outcome{true, false}));
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_llx, 1.0);
}

// A custom size keeps its name, so a new size is not noticed.
TEST_F(TakeOverPaper, anotherCustomSizeUnderTheSameNameKeepsTheBounds)
{
    EXPECT_TRUE(takeOver(settled, paper(DM_PAPERSIZE, 256, OD_T(""))).succeeded);
    settled.m_media.m_actual_printable_bounds_llx = 1;
    Block block = paper(DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH, 256, OD_T(""));
    block.fields.dmPaperWidth = 5000;
    block.fields.dmPaperLength = 9000;
    EXPECT_EQ(takeOver(settled, block), (Outcome{true, false}));
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_llx, 1.0);
}

TEST_F(TakeOverPaper, unusableBoundsAreTakenFromTheDeviceAndAreAChange)
{
    settled.m_media.m_size.m_media_description.m_printable_area = 0;
    EXPECT_EQ(takeOver(settled, driversBlock()), (Outcome{true, true}));
    EXPECT_GT(settled.m_media.m_size.m_media_description.m_printable_area, 0);
    EXPECT_EQ(takeOver(settled, driversBlock()), (Outcome{true, false}));
}

TEST_F(TakeOverPaper, withoutADeviceContextTheNameChangesAndTheBoundsStay)
{
    m_room.refuse(room::Call::createDC);
    settled.m_media.m_actual_printable_bounds_llx = 1;
    EXPECT_EQ(takeOver(settled, paper(both, 8, OD_T(""))), (Outcome{true, true}));
    EXPECT_EQ(name(), OD_T("A3"));
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_llx, 1.0);
}

TEST_F(TakeOverPaper, aDeviceWithoutResolutionChangesNoBoundsAndStoresNoInfinity)
{
    m_printer.caps.dpiX = 0;
    const double before = settled.m_media.m_actual_printable_bounds_llx;
    EXPECT_TRUE(takeOver(settled, paper(both, 8, OD_T(""))).succeeded);
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_llx, before);
    EXPECT_TRUE(std::isfinite(settled.m_media.m_size.m_media_description.m_media_bounds.m_urx));
}

// The device already reports the new orientation, and its bounds are still swapped. An import has always done so;
// existing files have the result.
TEST_F(TakeOverPaper, paperAndOrientationTogetherGiveTheDevicesBoundsSwapped)
{
    Block block = paper(both, 8, OD_T(""));
    block.fields.dmOrientation = DMORIENT_LANDSCAPE;
    EXPECT_EQ(takeOver(settled, block), (Outcome{true, true}));
    EXPECT_DOUBLE_EQ(settled.m_media.m_actual_printable_bounds_llx, 120 * 25.4 / 600);
    EXPECT_DOUBLE_EQ(settled.m_media.m_actual_printable_bounds_lly, 100 * 25.4 / 600);
    EXPECT_DOUBLE_EQ(settled.m_media.m_size.m_media_description.m_media_bounds.m_urx, 7016 * 25.4 / 600);
    EXPECT_DOUBLE_EQ(settled.m_media.m_size.m_media_description.m_media_bounds.m_ury, 4960 * 25.4 / 600);
}

TEST_F(TakeOverPaper, aFailureClosesEverythingAndKeepsWhatWasChangedBefore)
{
    Block block = paper(DM_PAPERSIZE, 10, OD_T(""));
    block.privateBytes[7] = 0x77;
    block.fields.dmCopies = 99;
    EXPECT_EQ(takeOver(settled, block), (Outcome{false, true}));
    EXPECT_EQ(settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")].right(2), OD_T("77"));
    EXPECT_NE(settled.m_media.m_number_of_copies, 99);
    EXPECT_EQ(m_room.openHandles(), 0);
    EXPECT_EQ(m_room.openContexts(), 0);
    EXPECT_GT(calls(room::Call::createDC), 0);
}
