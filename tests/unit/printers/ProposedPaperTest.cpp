#include "GarmPC3Editor/Printing/PaperNames.h"

#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "tests/support/PrinterRoomTest.h"

#include <algorithm>
#include <cstring>

// The paper that the driver's default proposes, before anything is imported.

namespace
{
class ProposedPaper : public PrinterRoomTest
{
protected:
    void SetUp() override
    {
        room.add({.name = OD_T("P"), .papers = {{9, OD_T("A4")}, {300, OD_T("Roll")}, {0x9000, OD_T("High")}}});
    }

    // The proposal from a device mode with those flags.
    static std::optional<OdString> proposal(DWORD fields, int code, OdStringView form, WORD size = sizeof(DEVMODEW))
    {
        DEVMODEW dm = {};
        dm.dmSize = size;
        dm.dmFields = fields;
        dm.dmPaperSize = static_cast<short>(code);
        std::ranges::copy(form.substr(0, 32), dm.dmFormName);
        std::vector<BYTE> bytes(sizeof dm);
        std::memcpy(bytes.data(), &dm, sizeof dm);
        GmPrinterInfo printer(OD_T("P"));
        return proposedPaper(DevModeView(bytes), printer);
    }
};
} // namespace

TEST_F(ProposedPaper, aFormNameGoesBeforeThePaperCode)
{
    EXPECT_EQ(proposal(DM_FORMNAME | DM_PAPERSIZE, 9, OD_T("Roll")), OdString(OD_T("Roll")));
    EXPECT_EQ(proposal(DM_FORMNAME, 9, OD_T("not listed")), OdString(OD_T("not listed")));
    EXPECT_EQ(proposal(DM_FORMNAME | DM_PAPERSIZE, 9, OD_T("")), OdString(OD_T("")));
}

TEST_F(ProposedPaper, aFormNameWithoutTerminatorEndsWithItsField)
{
    EXPECT_EQ(proposal(DM_FORMNAME, 9, OdString(std::basic_string<OdChar>(40, 'f'))),
              OdString(std::basic_string<OdChar>(32, 'f')));
}

TEST_F(ProposedPaper, aListedCodeGivesThePapersName)
{
    EXPECT_EQ(proposal(DM_PAPERSIZE, 9, OD_T("ignored")), OdString(OD_T("A4")));
    EXPECT_EQ(proposal(DM_PAPERSIZE, 300, OD_T("")), OdString(OD_T("Roll")));
}

TEST_F(ProposedPaper, aCodeThatIsNotListedIsNamedByItsNumber)
{
    EXPECT_EQ(proposal(DM_PAPERSIZE, 256, OD_T("")), OdString(OD_T("User256")));
    EXPECT_EQ(proposal(DM_PAPERSIZE, 0, OD_T("")), OdString(OD_T("User0")));
    EXPECT_EQ(proposal(DM_PAPERSIZE, 32767, OD_T("")), OdString(OD_T("User32767")));
}

TEST_F(ProposedPaper, aCodeThatIsNegativeAsSigned16BitProposesNothingEvenWhenListed)
{
    EXPECT_EQ(proposal(DM_PAPERSIZE, 0x9000, OD_T("")), std::nullopt);
    EXPECT_EQ(proposal(DM_PAPERSIZE, -1, OD_T("")), std::nullopt);
}

TEST_F(ProposedPaper, withoutFlagsNothingIsProposed)
{
    EXPECT_EQ(proposal(0, 9, OD_T("Roll")), std::nullopt);
}

TEST_F(ProposedPaper, aFieldThatIsNotThereProposesNothing)
{
    EXPECT_EQ(proposal(DM_FORMNAME | DM_PAPERSIZE, 9, OD_T("Roll"), 80), OdString(OD_T("A4")));
    EXPECT_EQ(proposal(DM_FORMNAME | DM_PAPERSIZE, 9, OD_T("Roll"), 76), std::nullopt);
}
