#include "common/FaultText.h"
#include "common/Printable.h"
#include "plothost/Reports.h"
#include "plothost/ShowReport.h"

#include <gtest/gtest.h>

#include "SampleTree.h"

using namespace plothost;
using apps::columns;

namespace
{
// The length of one name, and the number of others.
constexpr std::size_t longest = 20'000;
constexpr int lines = 500;

// A control character takes six in a report; each line has some words, blanks and marks of its own.
constexpr std::size_t unitsToBytes = 6;
constexpr std::size_t ofEachLine = 400;

OdString longName(OdChar c)
{
    return OdString(std::basic_string<OdChar>(longest, c));
}

OdString shortName(int number)
{
    return OdString(odFromUtf8(std::to_string(number)));
}

// The allowed size in bytes of a report with that many long names, each shown at most twice.
std::size_t bound(std::size_t longNames)
{
    return 2 * unitsToBytes * longest * longNames + ofEachLine * (lines + 200);
}

// In letters and in control characters.
constexpr OdChar contents[] = {'n', 7};
} // namespace

TEST(ReportSize, aLongNameIsPaidForOnceInAList)
{
    for (const OdChar c : contents)
    {
        ListReport report;
        report.printers.push_back({longName(c), longName(c), longName(c), true});
        report.configurations.push_back({longName(c), longName(c)});
        report.folders.push_back(longName(c));
        for (int i = 0; i < lines / 2; ++i)
        {
            report.printers.push_back({shortName(i), shortName(i), shortName(i), false});
            report.configurations.push_back({shortName(i), shortName(i)});
        }
        EXPECT_LE(textOf(report).size(), bound(6));
        EXPECT_LE(jsonOf(report).size(), bound(6));
    }
}

TEST(ReportSize, aLongNameIsPaidForOnceInACommandList)
{
    for (const OdChar c : contents)
    {
        CommandsReport report;
        report.commands.push_back({longName(c), longName(c), longName(c)});
        for (int i = 0; i < lines; ++i)
            report.commands.push_back({shortName(i), shortName(i), shortName(i)});
        EXPECT_LE(textOf(report).size(), bound(3));
    }
}

TEST(ReportSize, aLongNameIsPaidForOnceInAnAnswer)
{
    for (const OdChar c : contents)
    {
        DevModeReport devMode;
        devMode.deviceName = devMode.printerName = devMode.paperName = devMode.canonicalModelName = longName(c);
        EXPECT_LE(textOf(devMode).size(), bound(4));
        EXPECT_LE(jsonOf(devMode).size(), bound(4));
        EditReport edit;
        edit.name = edit.fileName = edit.paperName = edit.canonicalModelName = longName(c);
        EXPECT_LE(textOf(edit).size(), bound(4));
        EXPECT_LE(jsonOf(edit).size(), bound(4));
        const BackgroundReport background{longName(c), true};
        EXPECT_LE(textOf(background).size(), bound(1));
        EXPECT_LE(jsonOf(background).size(), bound(1));
    }
}

TEST(ReportSize, aLongNameIsPaidForOnceInAConfiguration)
{
    for (const OdChar c : contents)
    {
        GmPlotCfg3 configuration = sample::configuration();
        configuration.m_meta.m_win_device_name = configuration.m_meta.m_config_description = longName(c);
        GmCustomNode& custom = *configuration.m_custom;
        custom.m_strings[longName(c)] = longName(c);
        custom.m_numbers[longName(c)] = OD_T("1");
        custom.m_flags[longName(c)] = 1;
        for (int i = 0; i < lines; ++i)
            custom.m_strings[shortName(i)] = OD_T("x");
        ShowReport report;
        report.path = report.storedPrinter = longName(c);
        report.binding = ShowReport::Binding::rebound;
        report.configuration = &configuration;
        EXPECT_LE(textOf(report).size(), bound(5)) << "the names of block custom are cut";
        EXPECT_LE(jsonOf(report).size(), bound(9));
        report.full = true;
        EXPECT_LE(textOf(report).size(), bound(9));
    }
}

TEST(ReportSize, aLongNameIsPaidForOnceInAReason)
{
    for (const OdChar c : contents)
    {
        // With every text that a sentence may contain.
        Fault fault;
        fault.block = fault.key = fault.text = longName(c);
        for (int code = 0; code <= static_cast<int>(FaultCode::noPrivateBytes); ++code)
        {
            fault.code = static_cast<FaultCode>(code);
            EXPECT_LE(apps::textOf(fault).size(), bound(2)) << code;
        }
        EXPECT_LE(apps::whyNotOpened(longName(c), 1801).size(), bound(1));
    }
}

TEST(ReportSize, columnsStayAlignedUpTo64)
{
    const std::string wide(64, 'w');
    EXPECT_EQ(columns({{wide, "1"}, {"a", "2"}}, 0), wide + "  1\na" + std::string(65, ' ') + "2\n");
    const std::string wider(65, 'w');
    EXPECT_EQ(columns({{wider, "1"}, {"a", "2"}, {"bc", "3"}}, 0), wider + "  1\na   2\nbc  3\n");
    EXPECT_EQ(columns({{wider, "1"}}, 1), " " + wider + "  1\n") << "no column of its own width";
}
