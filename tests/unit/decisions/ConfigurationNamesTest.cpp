#include "GarmPC3Editor/Decisions/ConfigurationNames.h"

#include <gtest/gtest.h>

namespace
{
GmPlotCfg3 boundTo(const OdChar* printer)
{
    GmPlotCfg3 cfg;
    cfg.m_meta.m_win_device_name = printer;
    return cfg;
}
} // namespace

TEST(FileTitle, isFileNameAndExtension)
{
    const GmPlotCfg3 cfg = boundTo(OD_T("Plotter A"));
    EXPECT_EQ(fileTitle(OD_T("C:\\plot\\PLOTTER.pc3"), cfg), OD_T("PLOTTER.pc3"));
    EXPECT_EQ(fileTitle(OD_T("C:\\plot\\.pc3"), cfg), OD_T(".pc3"));
    EXPECT_EQ(fileTitle(OD_T("A0"), cfg), OD_T("A0"));
}

TEST(FileTitle, isTheWindowsPrinterWithoutAFileName)
{
    EXPECT_EQ(fileTitle(OD_T(""), GmPlotCfg3()), OD_T(""));
    for (const OdChar* printer : {OD_T("Plotter A"), OD_T("\\\\srv\\Plotter A")})
        for (const OdChar* path : {OD_T(""), OD_T("C:\\plot\\")})
            EXPECT_EQ(fileTitle(path, boundTo(printer)), printer);
}

TEST(SaveProposal, aPathProposesItself)
{
    EXPECT_EQ(proposedPath(OD_T("C:\\a\\b.pc3"), OD_T("D:\\x"), boundTo(OD_T("P"))), OD_T("C:\\a\\b.pc3"));
}

TEST(SaveProposal, printerProposesItsNameInFirstFolder)
{
    const GmPlotCfg3 cfg = boundTo(OD_T("\\\\srv\\p|x/y"));
    EXPECT_EQ(proposedPath(OD_T(""), OD_T("C:\\plot;D:\\more"), cfg), OD_T("C:\\plot\\__srv_p_x_y"));
    EXPECT_EQ(proposedPath(OD_T(""), OD_T("C:\\plot\\"), cfg), OD_T("C:\\plot\\__srv_p_x_y"));
    EXPECT_EQ(proposedPath(OD_T(""), OD_T(""), cfg), OD_T("__srv_p_x_y"));
}

TEST(SaveProposal, withoutPathAndPrinterThereIsNone)
{
    EXPECT_EQ(proposedPath(OD_T(""), OD_T("C:\\plot"), boundTo(OD_T(""))), OD_T(""));
}

TEST(SaveProposal, theSavedPathAlwaysGetsSeparatorAndExtension)
{
    EXPECT_EQ(savePath(OD_T("C:\\plot;D:\\more"), OD_T("x")), OD_T("C:\\plot\\x.pc3"));
    EXPECT_EQ(savePath(OD_T("C:\\plot\\"), OD_T("x")), OD_T("C:\\plot\\\\x.pc3"));
    EXPECT_EQ(savePath(OD_T("C:\\plot"), OD_T("x.pc3")), OD_T("C:\\plot\\x.pc3.pc3"));
    EXPECT_EQ(savePath(OD_T(""), OD_T("name")), OD_T("\\name.pc3"));
}

TEST(NameProposal, extensionInCapitalsIsTakenAsItIs)
{
    const GmNameProposal proposal = nameProposal(OD_T("C:\\plot\\A0.PC3"));
    EXPECT_EQ(proposal.path, OD_T("C:\\plot\\A0.PC3"));
    EXPECT_FALSE(proposal.extensionAdded);
    EXPECT_EQ(proposal.name, OD_T("A0"));
}

TEST(NameProposal, aMissingExtensionIsAdded)
{
    const GmNameProposal proposal = nameProposal(OD_T("C:\\plot\\HP 5.5"));
    EXPECT_EQ(proposal.path, OD_T("C:\\plot\\HP 5.5.pc3"));
    EXPECT_TRUE(proposal.extensionAdded);
    EXPECT_EQ(proposal.name, OD_T("HP 5.5"));

    EXPECT_EQ(nameProposal(OD_T("")).path, OD_T(".pc3"));
    EXPECT_EQ(nameProposal(OD_T("")).name, OD_T(""));
    EXPECT_TRUE(nameProposal(OD_T("pc3")).extensionAdded);
}

TEST(Trimmed, losesWhiteSpaceOnBothSidesOnly)
{
    EXPECT_EQ(trimmed(OD_T(" \t A 0 \r\n")), OD_T("A 0"));
    EXPECT_EQ(trimmed(OD_T("   ")), OD_T(""));
    EXPECT_EQ(trimmed(OD_T("")), OD_T(""));
}

TEST(Trimmed, knowsAllWhiteSpace)
{
    const OdString spaces(
        OD_T("\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
             "\u200A\u2028\u2029\u202F\u205F\u3000"));
    ASSERT_EQ(spaces.getLength(), 25);
    for (int i = 0; i <= 0xFFFF; ++i)
    {
        const auto c = static_cast<OdChar>(i);
        const OdString text = OdString(&c, 1) + OD_T("A 0") + OdString(&c, 1);
        EXPECT_EQ(trimmed(text), spaces.find(c) >= 0 ? OdString(OD_T("A 0")) : text) << i;
    }
}
