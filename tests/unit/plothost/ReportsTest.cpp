#include "plothost/Reports.h"
#include "common/Json.h"
#include "common/Printable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

using namespace plothost;
using apps::columns;
using apps::displayWidth;
using apps::Json;
using testing::HasSubstr;

namespace
{
DevModeReport sampleReport()
{
    DEVMODEW devMode = {};
    devMode.dmSize = sizeof(devMode);
    devMode.dmDriverExtra = 2;
    devMode.dmDeviceName[0] = 'P';
    devMode.dmFields = 0x3;
    devMode.dmOrientation = 1;
    devMode.dmPaperSize = 300;
    devMode.dmScale = 100;
    DevModeReport report;
    report.deviceName = OD_T("plan.pc3");
    report.result = true;
    report.printerName = OD_T("P");
    report.paperName = OD_T("A4");
    report.driverType = 1;
    report.canonicalModelName = OD_T("System");
    report.devMode.resize(sizeof(devMode) + 2);
    std::memcpy(report.devMode.data(), &devMode, sizeof(devMode));
    report.devMode[220] = 0xAB;
    report.devMode[221] = 0x01;
    return report;
}

Json parsed(const std::string& text)
{
    EXPECT_TRUE(text.ends_with("}\n"));
    return Json::parse(text);
}

std::vector<std::string> keysOf(const Json& json)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items())
        keys.push_back(key);
    return keys;
}
} // namespace

TEST(PlothostReports, devModeAsText)
{
    const std::string text = textOf(sampleReport());
    EXPECT_THAT(text, HasSubstr("device       plan.pc3\n"));
    EXPECT_THAT(text, HasSubstr("result       yes\n"));
    EXPECT_THAT(text, HasSubstr("printer      P\n"));
    EXPECT_THAT(text, HasSubstr("paper        A4\n"));
    EXPECT_THAT(text, HasSubstr("driver type  1 (Windows system printer)\n"));
    EXPECT_THAT(text, HasSubstr("model        System\n"));
    EXPECT_THAT(text, HasSubstr("DEVMODE: 220 + 2 bytes, dmFields 0x3\n"));
    EXPECT_THAT(text, testing::ContainsRegex("\n  dmOrientation +flagged +1 +DMORIENT_PORTRAIT\n"));
    EXPECT_THAT(text, testing::ContainsRegex("\n  dmPaperSize +flagged +300 +DMPAPER_USER\\+44\n"));
    EXPECT_THAT(text, testing::ContainsRegex("\n  dmScale +- +100\n"));
    EXPECT_THAT(text, testing::ContainsRegex("\n  dmDeviceName +\"P\"\n"));
    EXPECT_THAT(text, HasSubstr("private bytes: 2\n    AB 01\n"));
}

TEST(PlothostReports, devModeAsJson)
{
    const Json json = parsed(jsonOf(sampleReport()));
    EXPECT_EQ(keysOf(json), (std::vector<std::string>{"deviceName", "result", "printerName", "paperName", "driverType",
                                                      "canonicalModelName", "devMode"}));
    EXPECT_EQ(json["deviceName"], "plan.pc3");
    EXPECT_EQ(json["result"], true);
    EXPECT_EQ(json["driverType"], 1);
    const Json& devMode = json["devMode"];
    EXPECT_EQ(keysOf(devMode), (std::vector<std::string>{"bytes", "size", "driverExtra", "bytesBehind", "flags",
                                                         "flagNames", "unnamedFlags", "fields", "privateBytes"}));
    EXPECT_EQ(devMode["bytes"], 222);
    EXPECT_EQ(devMode["flagNames"], (Json{"DM_ORIENTATION", "DM_PAPERSIZE"}));
    EXPECT_EQ(devMode["privateBytes"]["hex"], "AB01");
    ASSERT_EQ(devMode["fields"].size(), 31U);
    for (const Json& field : devMode["fields"])
        EXPECT_EQ(keysOf(field), (std::vector<std::string>{"name", "value", "symbol", "flagged"}));
    EXPECT_EQ(devMode["fields"][0]["value"], "P");
    EXPECT_TRUE(devMode["fields"][0]["flagged"].is_null());
    EXPECT_TRUE(devMode["fields"][0]["symbol"].is_null());
    EXPECT_EQ(devMode["fields"][3]["symbol"], "DMORIENT_PORTRAIT");
    EXPECT_EQ(devMode["fields"][3]["flagged"], true);
    EXPECT_EQ(devMode["fields"][7]["name"], "dmScale");
    EXPECT_EQ(devMode["fields"][7]["value"], 100);
    EXPECT_EQ(devMode["fields"][7]["flagged"], false);
}

TEST(PlothostReports, noDevModeAndAnOddOne)
{
    DevModeReport report;
    report.deviceName = OD_T("P");
    EXPECT_THAT(textOf(report), testing::AllOf(HasSubstr("DEVMODE: none\n"), HasSubstr("result       no\n"),
                                               HasSubstr("paper        -\n"), HasSubstr("driver type  0\n")));
    EXPECT_TRUE(parsed(jsonOf(report))["devMode"].is_null());

    report.devMode.resize(10);
    EXPECT_THAT(textOf(report), HasSubstr("DEVMODE: 10 bytes are too few for a DEVMODEW\n"));
    const Json json = parsed(jsonOf(report));
    EXPECT_EQ(json["devMode"]["bytes"], 10);
    EXPECT_EQ(json["devMode"]["problem"], "10 bytes are too few for a DEVMODEW");
}

TEST(PlothostReports, aShortBlockAndManyPrivateBytes)
{
    DevModeReport report = sampleReport();
    report.devMode[68] = 76;  // dmSize
    report.devMode[70] = 100; // dmDriverExtra
    const std::string text = textOf(report);
    EXPECT_THAT(text, testing::ContainsRegex("\n  dmScale +- +not in the block\n"));
    EXPECT_THAT(text, HasSubstr("bytes after the block: 46\n"));
    EXPECT_THAT(text, HasSubstr("private bytes: 100\n"));
    EXPECT_THAT(text, HasSubstr("\n    ...\n"));
    const Json json = parsed(jsonOf(report));
    EXPECT_TRUE(json["devMode"]["fields"][7]["value"].is_null());
    EXPECT_EQ(json["devMode"]["privateBytes"]["hex"].get<std::string>().size(), 200U);
    EXPECT_EQ(json["devMode"]["bytesBehind"], 46);
}

TEST(PlothostReports, listAsTextAndJson)
{
    ListReport report;
    report.printers = {{OD_T("Plotter A"), OD_T("Acme"), OD_T("FILE:"), true},
                       {OD_T("B"), OD_T(""), OD_T("LPT1:"), false}};
    report.folders = {OD_T("/plots")};
    report.configurations = {{OD_T("x.pc3"), OD_T("/plots/x.pc3")}};
    const std::string text = textOf(report);
    EXPECT_THAT(text, HasSubstr("*  Plotter A  Acme    FILE:\n"));
    EXPECT_THAT(text, HasSubstr("   B          -       LPT1:\n"));
    EXPECT_THAT(text, HasSubstr("Configurations\n   x.pc3  /plots/x.pc3\n"));
    EXPECT_THAT(text, HasSubstr("Search path\n   /plots\n"));

    const Json json = parsed(jsonOf(report));
    EXPECT_EQ(keysOf(json), (std::vector<std::string>{"printers", "configurations", "searchPath"}));
    EXPECT_EQ(json["printers"][0],
              (Json{{"name", "Plotter A"}, {"driver", "Acme"}, {"port", "FILE:"}, {"default", true}}));
    EXPECT_EQ(json["printers"][1]["default"], false);
    EXPECT_EQ(json["configurations"][0], (Json{{"name", "x.pc3"}, {"path", "/plots/x.pc3"}}));
    EXPECT_EQ(json["searchPath"], Json::array({"/plots"}));
}

TEST(PlothostReports, anEmptyListSaysSo)
{
    EXPECT_THAT(textOf(ListReport()), testing::AllOf(HasSubstr("No printers\n"), HasSubstr("No configurations")));
    const Json json = parsed(jsonOf(ListReport()));
    EXPECT_EQ(json["printers"], Json::array());
    EXPECT_EQ(json["configurations"], Json::array());
    EXPECT_EQ(json["searchPath"], Json::array());
}

TEST(PlothostReports, backgroundFlag)
{
    BackgroundReport report;
    report.deviceName = OD_T("P");
    EXPECT_THAT(textOf(report), HasSubstr("flag    0\n"));
    EXPECT_EQ(parsed(jsonOf(report)), (Json{{"deviceName", "P"}, {"flag", 0}}));
    report.flag = true;
    EXPECT_THAT(textOf(report), HasSubstr("flag    1\n"));
    EXPECT_EQ(parsed(jsonOf(report))["flag"], 1);
}

TEST(PlothostReports, commands)
{
    EXPECT_EQ(textOf(CommandsReport()), "No commands\n");
    EXPECT_EQ(textOf(CommandsReport{{{OD_T("G"), OD_T("_A"), OD_T("A")}}}),
              "global name  local name  group\n_A           A           G\n");
}

TEST(PlothostReports, hostileTextsReachNeitherTerminalNorJsonRaw)
{
    DevModeReport report;
    const OdChar name[] = {'a', 0x1B, '[', '2', 'J', '\n', 0x202E, 0xD800, '"', 0};
    report.printerName = name;
    const std::string text = textOf(report);
    EXPECT_THAT(text, HasSubstr("a\\u001B[2J\\u000A\\u202E\xEF\xBF\xBD\""));
    EXPECT_EQ(text.find('\x1B'), std::string::npos);
    const std::string json = jsonOf(report);
    EXPECT_EQ(json.find('\x1B'), std::string::npos);
    EXPECT_EQ(parsed(json)["printerName"], "a\x1B[2J\n\xE2\x80\xAE\xEF\xBF\xBD\"");
}

TEST(Printable, columnsCountCharactersAndNotBytes)
{
    EXPECT_EQ(displayWidth("\xC3\xA4\xE2\x82\xAC"), 2U);
    EXPECT_EQ(columns({{"\xC3\xA4", "x"}, {"ab", "y"}, {"c"}}, 1), " \xC3\xA4   x\n ab  y\n c\n");
    EXPECT_EQ(columns({}, 3), "");
    EXPECT_EQ(columns({{""}}, 2), "\n");
}

TEST(PlothostReports, whatTheEditorLeftAsText)
{
    const EditReport report = {OD_T("plan"), false, OD_T("saved.pc3"), OD_T("A3"), 1, OD_T("System")};
    EXPECT_EQ(textOf(report), "configuration  plan\n"
                              "file           saved.pc3\n"
                              "paper          A3\n"
                              "result         1 (Windows system printer)\n"
                              "model          System\n");
    const EditReport bare = {OD_T("Plotter A"), true, {}, {}, 0, {}};
    EXPECT_EQ(textOf(bare), "printer  Plotter A\n"
                            "file     -\n"
                            "paper    -\n"
                            "result   0\n"
                            "model    -\n");
}

TEST(PlothostReports, whatTheEditorLeftAsJsonHasTheNamesOfTheValues)
{
    const Json json = parsed(jsonOf(EditReport{OD_T("P"), true, OD_T("P.pc3"), OD_T("A3"), -1, OD_T("M\"")}));
    EXPECT_EQ(keysOf(json), (std::vector<std::string>{"plotCfgName", "bSystemPrinter", "fileName", "paperName",
                                                      "result", "canonicalModelName"}));
    EXPECT_EQ(json["plotCfgName"], "P");
    EXPECT_EQ(json["bSystemPrinter"], true);
    EXPECT_EQ(json["fileName"], "P.pc3");
    EXPECT_EQ(json["paperName"], "A3");
    EXPECT_EQ(json["result"], -1);
    EXPECT_EQ(json["canonicalModelName"], "M\"");
}
