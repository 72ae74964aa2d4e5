#include "GarmPC3Editor/GmPrnHelper.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/PrinterRoomTest.h"

#include <optional>
#include <type_traits>

using room::Call;

namespace
{
class PrnHelper : public PrinterRoomTest
{
protected:
    void SetUp() override { room.add({.name = OD_T("Plotter A"), .port = OD_T("FILE:")}); }
};

static_assert(std::is_nothrow_copy_assignable_v<GmPrnHelper>);
} // namespace

TEST_F(PrnHelper, aPrinterThatDoesNotExistIsNotValidAndHasNoPorts)
{
    GmPrnHelper helper(OD_T("nobody"));
    EXPECT_FALSE(helper.isValid());
    OdString ports(OD_T("poison"));
    EXPECT_FALSE(helper.getPorts(ports));
    EXPECT_EQ(ports, OD_T(""));
}

TEST_F(PrnHelper, anInstalledPrinterIsValidAndTellsItsPorts)
{
    GmPrnHelper helper(OD_T("Plotter A"));
    EXPECT_TRUE(helper.isValid());
    OdString ports;
    EXPECT_TRUE(helper.getPorts(ports));
    EXPECT_EQ(ports, OD_T("FILE:"));
    EXPECT_EQ(room.openHandles(), 1);
}

TEST_F(PrnHelper, aNullNameIsNoPrinter)
{
    EXPECT_FALSE(GmPrnHelper(nullptr).isValid());
}

TEST_F(PrnHelper, assignmentSharesOnePrinterThatIsClosedOnce)
{
    room.add({.name = OD_T("Plotter B"), .port = OD_T("LPT1:")});
    std::optional<GmPrnHelper> first(std::in_place, OD_T("Plotter A"));
    GmPrnHelper second(OD_T("Plotter B"));
    second = *first;
    EXPECT_EQ(room.openHandles(), 1); // B is closed, A is open once
    EXPECT_EQ(room.count(Call::openPrinter), 2);
    first.reset();
    EXPECT_TRUE(second.isValid());
    OdString ports;
    EXPECT_TRUE(second.getPorts(ports));
    EXPECT_EQ(ports, OD_T("FILE:"));
    const GmPrnHelper third(second);
    EXPECT_EQ(room.openHandles(), 1);
}

TEST_F(PrnHelper, aNewConfigurationIsADefaultOneAndNeedsNoPrinter)
{
    GmPrnHelper helper(OD_T("nobody"));
    room.forgetCalls();
    const OdSharedPtr<GmPlotCfg3> cfg = helper.getNewPlotCfg3Ptr();
    ASSERT_TRUE(cfg);
    EXPECT_EQ(cfg.refCount(), 1);
    EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T(""));
    EXPECT_EQ(cfg->m_meta.m_driver_type, 0);
    EXPECT_TRUE(cfg->m_custom.isNull());
    EXPECT_TRUE(room.calls().empty());
    EXPECT_FALSE(helper.getNewPlotCfg3Ptr() == cfg);
}

TEST_F(PrnHelper, nothingADriverThrowsReachesTheHost)
{
    room.throwNth(1);
    EXPECT_FALSE(GmPrnHelper(OD_T("Plotter A")).isValid());
    EXPECT_TRUE(room.failureReached());

    GmPrnHelper helper(OD_T("Plotter A"));
    room.throwNth(2); // after the size query
    OdString ports(OD_T("poison"));
    EXPECT_FALSE(helper.getPorts(ports));
    EXPECT_EQ(ports, OD_T(""));
    EXPECT_TRUE(room.failureReached());
}
