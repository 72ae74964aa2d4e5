#include "plothost/ResellerSettings.h"

#include "host/GmResellerData.h"

#include <gtest/gtest.h>

using namespace plothost;

namespace
{
using Settings = std::vector<ResellerSetting>;

class ResellerStore : public testing::Test
{
protected:
    void SetUp() override { GmResellerData::clear(); }
    void TearDown() override { GmResellerData::clear(); }
};
} // namespace

TEST(ResellerSettings, aSettingIsAKeyAndAValue)
{
    EXPECT_EQ(resellerSetting(OD_T("PDFPRINTERNAME=Acme PDF")),
              (ResellerSetting{OD_T("PDFPRINTERNAME"), OD_T("Acme PDF")}));
    EXPECT_EQ(resellerSetting(OD_T(" k = a=b \t")), (ResellerSetting{OD_T("k"), OD_T("a=b")}));
}

TEST(ResellerSettings, withoutKeyOrValueThereIsNone)
{
    for (const OdChar* text : {OD_T(""), OD_T("k"), OD_T("="), OD_T("k="), OD_T("k= "), OD_T("=v"), OD_T(" =v")})
        EXPECT_EQ(resellerSetting(text), std::nullopt) << odToUtf8(text);
}

TEST(ResellerSettings, aFileHasOneInALine)
{
    const ResellerSettings read = parseResellerSettings("\xEF\xBB\xBFPDFPRINTERNAME=Gr\xC3\xBCn\r\n"
                                                        "\n"
                                                        "# no=setting\n"
                                                        "  ; nor=this\n"
                                                        " JPGPRINTERNAME = J");
    EXPECT_EQ(read.problem, "");
    EXPECT_EQ(read.settings,
              (Settings{{OD_T("PDFPRINTERNAME"), OD_T("Gr\u00FCn")}, {OD_T("JPGPRINTERNAME"), OD_T("J")}}));
    EXPECT_EQ(parseResellerSettings("").problem, "");
    EXPECT_TRUE(parseResellerSettings("").settings.empty());
}

TEST(ResellerSettings, badLineIsReported)
{
    EXPECT_EQ(parseResellerSettings("a=b\nPDFPRINTERNAME\n").problem, "line 2 is not KEY=VALUE");
    EXPECT_EQ(parseResellerSettings("a=").problem, "line 1 is not KEY=VALUE");
}

TEST_F(ResellerStore, holdsTheLastValueOfEachKey)
{
    storeResellerSettings({{OD_T("PDFPRINTERNAME"), OD_T("first")}, {OD_T("other"), OD_T("o")}});
    storeResellerSettings({{OD_T("PDFPRINTERNAME"), OD_T("second")}});
    OdString value;
    EXPECT_EQ(GmResellerData::lookup(OD_T("PDFPRINTERNAME"), value), 0);
    EXPECT_EQ(value, OD_T("second"));
    EXPECT_EQ(GmResellerData::lookup(OD_T("other"), value), 0);
    EXPECT_EQ(value, OD_T("o"));
    EXPECT_NE(GmResellerData::lookup(OD_T("JPGPRINTERNAME"), value), 0);
    EXPECT_EQ(value, OD_T("o")) << "a failed look-up touches nothing";
}
