#include "plothost/ShowReport.h"

#include "common/Json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "SampleTree.h"
#include "tests/support/ConfigurationKeys.h"

using namespace plothost;
using apps::Json;
using testing::ContainsRegex;
using testing::HasSubstr;

namespace
{
ShowReport reportOf(const GmPlotCfg3& configuration, ShowReport::Binding binding = ShowReport::Binding::same)
{
    ShowReport report;
    report.path = OD_T("/plots/x.pc3");
    report.storedPrinter = OD_T("Plotter Z");
    report.binding = binding;
    report.configuration = &configuration;
    return report;
}
} // namespace

TEST(ShowReport, everyBlockAndKeyIsListed)
{
    const GmPlotCfg3 configuration = sample::configuration();
    const std::string text = textOf(reportOf(configuration));
    const Json json = Json::parse(jsonOf(reportOf(configuration)));
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
    {
        if (!key.key.empty())
        {
            EXPECT_THAT(text, ContainsRegex("\n +" + odToUtf8(key.key) + " +\\S")) << key.block;
        }
        const Json::json_pointer pointer("/configuration/" + odToUtf8(key.path()));
        EXPECT_TRUE(json.contains(pointer)) << pointer.to_string();
    }
    EXPECT_THAT(text, HasSubstr("\n  size\n"));
    EXPECT_THAT(text, HasSubstr("\n    media_description\n"));
    EXPECT_THAT(text, HasSubstr("\n      media_bounds\n        urx  210.25\n"));
}

TEST(ShowReport, theOutermostMembersOfTheJson)
{
    const GmPlotCfg3 configuration = sample::configuration();
    const Json json = Json::parse(jsonOf(reportOf(configuration)));
    EXPECT_EQ(json["file"], "/plots/x.pc3");
    EXPECT_EQ(json["binding"], "same");
    EXPECT_EQ(json["storedPrinter"], "Plotter Z");
    EXPECT_EQ(json["printer"], "Plotter A");
    EXPECT_EQ(json["configuration"]["meta"]["driver_type"], 0);
    EXPECT_EQ(json["configuration"]["meta"]["default_system_cfg"], false);
    EXPECT_EQ(json["configuration"]["media"]["size"]["name"], "A4");
    EXPECT_EQ(json["configuration"]["media"]["size"]["longplot_reduction"], 0.5);
    EXPECT_EQ(json["configuration"]["io"]["plot_to_file"], false);
    EXPECT_EQ(json["configuration"]["res_color_mem"]["lines_overwrite"], true);
}

TEST(ShowReport, customItemsOfEveryKind)
{
    const GmPlotCfg3 configuration = sample::configuration();
    const Json json = Json::parse(jsonOf(reportOf(configuration)));
    EXPECT_EQ(json["configuration"]["custom"],
              Json::array({{{"name", "dmDriverExtra"}, {"kind", "number"}, {"value", "2"}},
                           {{"name", "dmSize"}, {"kind", "number"}, {"value", "220"}},
                           {{"name", "RawPrivateDeviceData"}, {"kind", "binary"}, {"value", "AB01"}},
                           {{"name", "note"}, {"kind", "string"}, {"value", "text"}},
                           {{"name", "bidi"}, {"kind", "flag"}, {"value", true}}}));
    const std::string text = textOf(reportOf(configuration));
    EXPECT_THAT(text, ContainsRegex("\n  dmSize +number +\"220\"\n"));
    EXPECT_THAT(text, ContainsRegex("\n  bidi +flag +true\n"));
}

TEST(ShowReport, longPrivateDataAreCutInTheTextOnly)
{
    GmPlotCfg3 configuration = sample::configuration();
    const OdString digits(std::basic_string<OdChar>(131072, 'A'));
    configuration.m_custom->m_binaries[OdString(OD_T("RawPrivateDeviceData"))] = digits;
    EXPECT_THAT(textOf(reportOf(configuration)), HasSubstr("\"... (131072 characters)\n"));
    const Json json = Json::parse(jsonOf(reportOf(configuration)));
    EXPECT_EQ(json["configuration"]["custom"][2]["value"].get<std::string>().size(), 131072U);
}

TEST(ShowReport, longNamesAreCutLikeValuesUnlessAllIsAskedFor)
{
    GmPlotCfg3 configuration = sample::configuration();
    configuration.m_custom->m_numbers[OdString(std::basic_string<OdChar>(64, 'n'))] = OD_T("64");
    configuration.m_custom->m_strings[OdString(std::basic_string<OdChar>(65, 's'))] =
        OdString(std::basic_string<OdChar>(100, 'v'));
    configuration.m_custom->m_flags[OdString(std::basic_string<OdChar>(63, 'f') + OD_T("\xD83D\xDE00"))] = 1;
    ShowReport report = reportOf(configuration);
    const std::string cut = textOf(report);
    EXPECT_THAT(cut, HasSubstr("\n  " + std::string(64, 'n') + "  number  \"64\"\n"));
    EXPECT_THAT(cut, HasSubstr("\n  " + std::string(64, 's') + "... (65 characters)  string  \"" +
                               std::string(64, 'v') + "\"... (100 characters)\n"));
    EXPECT_THAT(cut, HasSubstr("\n  " + std::string(63, 'f') + "... (65 characters)  flag    true\n"))
        << "no half of a character";

    report.full = true;
    const std::string full = textOf(report);
    EXPECT_THAT(full, HasSubstr("\n  " + std::string(65, 's') + "  string  \"" + std::string(100, 'v') + "\"\n"));
    EXPECT_THAT(full, HasSubstr("\n  " + std::string(63, 'f') + "\xF0\x9F\x98\x80  flag    true\n"));
    EXPECT_THAT(full, testing::Not(HasSubstr("...")));
}

TEST(ShowReport, whatIsAbsentSaysSo)
{
    const GmPlotCfg3 fresh;
    const std::string text = textOf(reportOf(fresh, ShowReport::Binding::none));
    EXPECT_THAT(text, HasSubstr("printer  not bound to a Windows driver\n"));
    EXPECT_THAT(text, HasSubstr("\n  destination: absent\n"));
    EXPECT_THAT(text, HasSubstr("\ncustom: absent\n"));
    EXPECT_THAT(text, ContainsRegex("\n  color_mono +absent\n"));
    const Json json = Json::parse(jsonOf(reportOf(fresh, ShowReport::Binding::none)));
    EXPECT_EQ(json["binding"], "none");
    EXPECT_TRUE(json["configuration"]["media"]["destination"].is_null());
    EXPECT_TRUE(json["configuration"]["custom"].is_null());
    EXPECT_TRUE(json["configuration"]["meta"]["default_system_cfg"].is_null());
}

TEST(ShowReport, whetherReadingReboundIt)
{
    const GmPlotCfg3 configuration = sample::configuration();
    EXPECT_THAT(textOf(reportOf(configuration)), HasSubstr("printer  bound to \"Plotter A\"\n"));
    const ShowReport rebound = reportOf(configuration, ShowReport::Binding::rebound);
    EXPECT_THAT(textOf(rebound), HasSubstr("printer  rebound to \"Plotter A\"; the file names \"Plotter Z\"\n"));
    EXPECT_EQ(Json::parse(jsonOf(rebound))["binding"], "rebound");
}

TEST(ShowReport, numbersThatJsonDoesNotKnow)
{
    GmPlotCfg3 configuration;
    configuration.m_media.m_actual_printable_bounds_llx = std::numeric_limits<double>::quiet_NaN();
    configuration.m_media.m_actual_printable_bounds_lly = -std::numeric_limits<double>::infinity();
    configuration.m_media.m_actual_printable_bounds_urx = 1e300;
    const Json media = Json::parse(jsonOf(reportOf(configuration)))["configuration"]["media"];
    EXPECT_EQ(media["actual_printable_bounds_llx"], "nan");
    EXPECT_EQ(media["actual_printable_bounds_lly"], "-inf");
    EXPECT_EQ(media["actual_printable_bounds_urx"], 1e300);
    EXPECT_THAT(textOf(reportOf(configuration)), ContainsRegex("actual_printable_bounds_llx +nan\n"));
}
