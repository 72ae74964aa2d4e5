#include "host/GarmInterfaces.h"

#include "kernel/OdStaticRxObject.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace
{
class ForeignContext : public OdEdCommandContext
{
};
} // namespace

TEST(GarmInterfaces, aContextOfTheHostIsItsInterface)
{
    const GarmInterfacesPtr interfaces = newGarmInterfaces();
    OdEdCommandContext* context = interfaces.get();
    EXPECT_EQ(getGarmInterfaces(context).get(), interfaces.get());
    EXPECT_EQ(interfaces->refCount(), 1);
}

TEST(GarmInterfaces, aForeignOrNullContextHasNone)
{
    OdStaticRxObject<ForeignContext> foreign;
    EXPECT_EQ(getGarmInterfaces(&foreign), nullptr);
    EXPECT_EQ(getGarmInterfaces(nullptr), nullptr);
}

TEST(GarmInterfaces, givesAccessToDocumentVariablesAndValues)
{
    const GarmInterfacesPtr interfaces = newGarmInterfaces();
    GmDocInternalInterface* document = getDocInternalInterface(interfaces.get());
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(getSysvarManagerInterface(interfaces.get()), &document->sysvarManager());
    EXPECT_EQ(getServicesManagerInterface(interfaces.get()), &document->servicesManager());

    EXPECT_EQ(getDocInternalInterface(nullptr), nullptr);
    EXPECT_EQ(getSysvarManagerInterface(nullptr), nullptr);
    EXPECT_EQ(getServicesManagerInterface(nullptr), nullptr);
}

TEST(GarmInterfaces, contextsDoNotShareValues)
{
    const GarmInterfacesPtr first = newGarmInterfaces();
    const GarmInterfacesPtr second = newGarmInterfaces();
    getServicesManagerInterface(first.get())->set(OD_T("a"), OdResBuf::newRb(kRtBool));
    EXPECT_EQ(getServicesManagerInterface(second.get())->get(OD_T("a")), nullptr);
}

TEST(GarmInterfaces, theProcessHasOnlyOne)
{
    EXPECT_EQ(getGarmInterfaces(), getGarmInterfaces());
    EXPECT_EQ(getMainInternalInterface(), getMainInternalInterface());
}

TEST(SystemVariables, areFoundWithoutRegardToCase)
{
    GmSysvarManagerInterface variables;
    const OdResBufPtr value = OdResBuf::newRb(kRtInt16, OdInt16(2));
    variables.setVar(OD_T("FileDia"), value);
    EXPECT_EQ(variables.getVar(OD_T("FILEDIA")), value);
    EXPECT_EQ(variables.getVar(OD_T("CMDDIA")), nullptr);

    variables.setVar(OD_T("filedia"), OdResBuf::newRb(kRtInt16, OdInt16(3)));
    EXPECT_EQ(variables.getVar(OD_T("FileDia"))->getInt16(), 3);
    variables.setVar(OD_T("FILEDIA"), nullptr);
    EXPECT_EQ(variables.getVar(OD_T("FileDia")), nullptr);
}

TEST(MainInterface, returnsCopiesOfTheSearchPath)
{
    GmMainInternalInterface mainInterface;
    EXPECT_EQ(mainInterface.plotCfgSearchPath(), OdString());
    mainInterface.setPlotCfgSearchPath(OD_T("a;b"));
    const OdString snapshot = mainInterface.plotCfgSearchPath();
    mainInterface.setPlotCfgSearchPath(OD_T("c"));
    EXPECT_EQ(snapshot, OD_T("a;b"));
    EXPECT_EQ(mainInterface.plotCfgSearchPath(), OD_T("c"));
}

TEST(MainInterface, anotherThreadReadsAConsistentPath)
{
    // Long enough to reveal a torn copy.
    const std::array<OdString, 2> paths = {OdString(std::basic_string<OdChar>(4000, 'a')),
                                           OdString(std::basic_string<OdChar>(70, 'b'))};
    GmMainInternalInterface mainInterface;
    mainInterface.setPlotCfgSearchPath(paths[0]);

    bool consistent = true;
    std::thread reader(
        [&]
        {
            for (int i = 0; i < 2000; ++i)
            {
                const OdString seen = mainInterface.plotCfgSearchPath();
                consistent = consistent && (seen == paths[0] || seen == paths[1]);
            }
        });
    for (std::size_t i = 0; i < 2000; ++i)
        mainInterface.setPlotCfgSearchPath(paths[i % paths.size()]);
    reader.join();
    EXPECT_TRUE(consistent);
}
