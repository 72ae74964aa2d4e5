#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/GmPrnHelper.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/PrinterRoomTest.h"

#include <utility>

// Running out of memory is a failed result, not an exception, and leaves nothing open.

namespace
{
class PrintersOutOfMemory : public PrinterRoomTest
{
protected:
    void SetUp() override
    {
        room.add({.name = OD_T("Plotter A"),
                  .driver = OD_T("Acme HP-GL"),
                  .port = OD_T("FILE:"),
                  .papers = {{9, OD_T("A4")}, {300, OD_T("A paper with a name that is no small string")}}});
    }
};
} // namespace

// A failure while something is closed has no effect, so some of these still have a result.
TEST_F(PrintersOutOfMemory, aConfigurationIsMadeWholeOrNotAtAll)
{
    const OdString name(OD_T("Plotter A"));
    unsigned nulls = 0;
    const unsigned failures = failEachAllocation([&name] { return GmPlotCfg3::create(name); },
                                                 [&](const OdSharedPtr<GmPlotCfg3>& cfg, bool failed)
                                                 {
                                                     EXPECT_EQ(room.openHandles(), 0);
                                                     EXPECT_EQ(room.openContexts(), 0);
                                                     EXPECT_TRUE(cfg || failed);
                                                     if (cfg)
                                                         EXPECT_EQ(cfg->toDevMode().size(), 228U);
                                                     else
                                                         ++nulls;
                                                 });
    EXPECT_GT(nulls, 50U);
    EXPECT_LE(nulls, failures);
}

TEST_F(PrintersOutOfMemory, aHelperIsMadeOrInvalid)
{
    unsigned silent = 0;
    failEachAllocation(
        []
        {
            GmPrnHelper helper(OD_T("Plotter A"));
            OdString ports(OD_T("poison"));
            const bool told = helper.getPorts(ports);
            return std::pair(told, ports);
        },
        [&](const std::pair<bool, OdString>& result, bool failed)
        {
            EXPECT_EQ(room.openHandles(), 0);
            EXPECT_TRUE(result.first || failed);
            EXPECT_EQ(result.second, result.first ? OdString(OD_T("FILE:")) : OdString());
            silent += result.first ? 0 : 1;
        });
    EXPECT_GT(silent, 4U);
}

TEST_F(PrintersOutOfMemory, aDefaultConfigurationIsMadeOrNull)
{
    GmPrnHelper helper(OD_T("Plotter A"));
    const unsigned failures =
        failEachAllocation([&helper] { return helper.getNewPlotCfg3Ptr(); },
                           [](const OdSharedPtr<GmPlotCfg3>& cfg, bool failed) { EXPECT_EQ(cfg.isNull(), failed); });
    EXPECT_EQ(failures, 2U); // the object and its reference count
}
