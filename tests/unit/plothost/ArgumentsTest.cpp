#include "plothost/Arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

using namespace plothost;
using testing::HasSubstr;
using testing::Not;

namespace
{
ParsedArguments parse(const std::vector<OdString>& arguments)
{
    return parseArguments(arguments);
}

Request understood(const std::vector<OdString>& arguments)
{
    const ParsedArguments parsed = parse(arguments);
    EXPECT_TRUE(parsed.request.has_value()) << parsed.error;
    EXPECT_EQ(parsed.output, "");
    EXPECT_EQ(parsed.error, "");
    return parsed.request.value_or(Request());
}

// Wrong usage reports its cause on the first line and how to get help on the last.
std::string refused(const std::vector<OdString>& arguments)
{
    const ParsedArguments parsed = parse(arguments);
    EXPECT_FALSE(parsed.request.has_value());
    EXPECT_EQ(parsed.status, exitUsage);
    EXPECT_EQ(parsed.output, "");
    EXPECT_THAT(parsed.error, testing::StartsWith("plothost: "));
    EXPECT_THAT(parsed.error, HasSubstr("--help'.\n"));
    return parsed.error;
}
} // namespace

TEST(PlothostArguments, eachCommandIsUnderstood)
{
    EXPECT_EQ(understood({OD_T("list")}).verb, Verb::list);
    EXPECT_EQ(understood({OD_T("commands")}).verb, Verb::commands);

    const Request devmode = understood({OD_T("devmode"), OD_T("Plan.pc3")});
    EXPECT_EQ(devmode.verb, Verb::devmode);
    EXPECT_EQ(devmode.name, OD_T("Plan.pc3"));
    EXPECT_FALSE(devmode.json);
    EXPECT_FALSE(devmode.background);
    EXPECT_FALSE(devmode.out.has_value());

    const Request edit = understood({OD_T("edit"), OD_T("Plan")});
    EXPECT_EQ(edit.verb, Verb::edit);
    EXPECT_EQ(edit.name, OD_T("Plan"));
    EXPECT_FALSE(edit.isPrinter);
    EXPECT_TRUE(edit.paper.isEmpty());
    EXPECT_FALSE(edit.json);

    const Request create = understood({OD_T("create"), OD_T("Plotter A"), OD_T("a.PC3")});
    EXPECT_EQ(create.verb, Verb::create);
    EXPECT_EQ(create.name, OD_T("Plotter A"));
    EXPECT_EQ(create.file, OD_T("a.PC3"));

    const Request show = understood({OD_T("show"), OD_T("a.pc3")});
    EXPECT_EQ(show.verb, Verb::show);
    EXPECT_EQ(show.file, OD_T("a.pc3"));
}

TEST(PlothostArguments, optionsStandBeforeOrBehindTheCommand)
{
    const std::vector<std::vector<OdString>> lines = {
        {OD_T("--search-path"), OD_T("a;b"), OD_T("--language"), OD_T("de"), OD_T("--module"), OD_T("m.grx"),
         OD_T("list"), OD_T("--json")},
        {OD_T("list"), OD_T("--json"), OD_T("--search-path=a;b"), OD_T("--language=de"), OD_T("--module=m.grx")},
    };
    for (const auto& line : lines)
    {
        const Request request = understood(line);
        EXPECT_EQ(request.verb, Verb::list);
        EXPECT_TRUE(request.json);
        EXPECT_EQ(request.searchPath, OdString(OD_T("a;b")));
        EXPECT_EQ(request.language, OdString(OD_T("de")));
        EXPECT_EQ(request.module, OdString(OD_T("m.grx")));
    }
    EXPECT_FALSE(understood({OD_T("list")}).searchPath.has_value());
    EXPECT_FALSE(understood({OD_T("list")}).language.has_value());
    EXPECT_FALSE(understood({OD_T("list")}).module.has_value());
}

TEST(PlothostArguments, optionsOfTheCommands)
{
    EXPECT_EQ(understood({OD_T("devmode"), OD_T("--out"), OD_T("dm.bin"), OD_T("x")}).out, OdString(OD_T("dm.bin")));
    EXPECT_TRUE(understood({OD_T("devmode"), OD_T("x"), OD_T("--background")}).background);
    EXPECT_TRUE(understood({OD_T("devmode"), OD_T("x"), OD_T("--json")}).json);
    EXPECT_TRUE(understood({OD_T("show"), OD_T("x"), OD_T("--json")}).json);
    const Request edit =
        understood({OD_T("edit"), OD_T("--printer"), OD_T("Plotter A"), OD_T("--paper"), OD_T("A4"), OD_T("--json")});
    EXPECT_TRUE(edit.isPrinter);
    EXPECT_EQ(edit.name, OD_T("Plotter A"));
    EXPECT_EQ(edit.paper, OD_T("A4"));
    EXPECT_TRUE(edit.json);
    EXPECT_EQ(understood({OD_T("--module"), OD_T("a"), OD_T("list"), OD_T("--module"), OD_T("b")}).module,
              OdString(OD_T("b")))
        << "the last one holds";
}

TEST(PlothostArguments, namesAreTakenAsTheyStand)
{
    for (const OdChar* name : {OD_T("list"), OD_T("\\\\srv\\Plotter #1"), OD_T("/tmp/x.pc3"), OD_T("[a b]"), OD_T("[]"),
                               OD_T("{}"), OD_T("a\"b"), OD_T("'x'"), OD_T(" two  blanks "), OD_T("-"), OD_T("a=b"),
                               OD_T("a,b"), OD_T("%%"), OD_T("Gr\u00F6\u00DFe \u30D7\u30EA\u30F3\u30BF"), OD_T("x\ny")})
        EXPECT_EQ(understood({OD_T("devmode"), name}).name, OdString(name));
}

TEST(PlothostArguments, aNameWithADashGoesBehindTwoDashes)
{
    for (const OdChar* name : {OD_T("--json"), OD_T("-x.pc3"), OD_T("--"), OD_T("++"), OD_T("--help")})
        EXPECT_EQ(understood({OD_T("devmode"), OD_T("--json"), OD_T("--"), name}).name, OdString(name));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("-x.pc3")}), HasSubstr("must follow '--'"));
    const Request both = understood({OD_T("create"), OD_T("--"), OD_T("-p"), OD_T("-f.pc3")});
    EXPECT_EQ(both.name, OD_T("-p"));
    EXPECT_EQ(both.file, OD_T("-f.pc3"));
    EXPECT_EQ(understood({OD_T("devmode"), OD_T("--out"), OD_T("-o"), OD_T("x")}).out, OdString(OD_T("-o")))
        << "what follows an option is its value";
}

TEST(PlothostArguments, whatStandsAfterTwoDashesIsNeverTakenForAnOption)
{
    for (const OdChar* name : {OD_T("--json"), OD_T("-x"), OD_T("--jsonn")})
    {
        const std::string said = refused({OD_T("list"), OD_T("--"), name});
        EXPECT_THAT(said, HasSubstr("unexpected argument '" + odToUtf8(name) + "'"));
        EXPECT_THAT(said, Not(HasSubstr("did you mean")));
    }
    EXPECT_THAT(refused({OD_T("list"), OD_T("--json"), OD_T("--"), OD_T("--json")}),
                HasSubstr("unexpected argument '--json'"));
    EXPECT_THAT(refused({OD_T("list"), OD_T("--jsn"), OD_T("--"), OD_T("x")}), HasSubstr("did you mean '--json'?"));
}

TEST(PlothostArguments, anEmptyFileNameIsNoValue)
{
    EXPECT_THAT(refused({OD_T("list"), OD_T("--module"), OdString()}), HasSubstr("--module needs a value"));
    EXPECT_THAT(refused({OD_T("--module"), OdString(), OD_T("list")}), HasSubstr("--module needs a value"));
    EXPECT_THAT(refused({OD_T("list"), OD_T("--settings"), OdString()}), HasSubstr("--settings needs a value"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("x"), OD_T("--out"), OdString()}), HasSubstr("--out needs a value"));
    EXPECT_EQ(understood({OD_T("list"), OD_T("--search-path"), OdString()}).searchPath, OdString())
        << "the same as none";
    EXPECT_EQ(understood({OD_T("edit"), OD_T("x"), OD_T("--paper"), OdString()}).paper, OdString());
}

TEST(PlothostArguments, theWaitForThePrintServerIsSecondsWithinAnHour)
{
    EXPECT_EQ(understood({OD_T("list")}).wait, 30);
    EXPECT_EQ(understood({OD_T("list"), OD_T("--wait"), OD_T("1")}).wait, 1);
    EXPECT_EQ(understood({OD_T("--wait=3600"), OD_T("list")}).wait, 3600);
    for (const OdChar* wrong :
         {OD_T(""), OD_T("0"), OD_T("3601"), OD_T("-1"), OD_T("1.5"), OD_T("x"), OD_T("5 "), OD_T("99999999999")})
        EXPECT_THAT(refused({OD_T("list"), OD_T("--wait"), wrong}), HasSubstr("--wait needs a")) << OdString(wrong);
}

TEST(PlothostArguments, showTakesFull)
{
    EXPECT_FALSE(understood({OD_T("show"), OD_T("x")}).full);
    EXPECT_TRUE(understood({OD_T("show"), OD_T("x"), OD_T("--full")}).full);
    EXPECT_THAT(refused({OD_T("list"), OD_T("--full")}), HasSubstr("has no option '--full'"));
}

TEST(PlothostArguments, helpNamesCommandsAndOptions)
{
    for (const auto& line : std::vector<std::vector<OdString>>{{OD_T("--help")}, {OD_T("-h")}})
    {
        const ParsedArguments parsed = parse(line);
        EXPECT_FALSE(parsed.request.has_value());
        EXPECT_EQ(parsed.status, exitYes);
        EXPECT_EQ(parsed.error, "");
        for (const char* word : {"plot",           "list",
                                 "devmode",        "edit",
                                 "create",         "show",
                                 "commands",       "--search-path",
                                 "--language",     "--module",
                                 "--settings",     "--reseller",
                                 "PDFPRINTERNAME", "JPGPRINTERNAME",
                                 "plothost.ini",   "--help",
                                 "--version",      "PLOTHOST_SEARCH_PATH",
                                 "Exit status",    "Without a command the Plot dialog opens"})
            EXPECT_THAT(parsed.output, HasSubstr(word));
    }
}

TEST(PlothostArguments, withoutACommandThePlotDialogIsMeant)
{
    EXPECT_EQ(understood({}).verb, Verb::plot);
    EXPECT_EQ(understood({OD_T("plot")}).verb, Verb::plot);
    const Request request = understood({OD_T("--language"), OD_T("de")});
    EXPECT_EQ(request.verb, Verb::plot);
    EXPECT_EQ(request.language, OdString(OD_T("de")));
    EXPECT_THAT(refused({OD_T("plot"), OD_T("x")}), HasSubstr("unexpected argument 'x'"));
}

TEST(PlothostArguments, resellerSettingsMayBeRepeated)
{
    const Request request = understood({OD_T("--reseller"), OD_T("PDFPRINTERNAME=Acme PDF"), OD_T("list"),
                                        OD_T("--reseller=a=b=c"), OD_T("--settings"), OD_T("host.ini")});
    EXPECT_EQ(request.verb, Verb::list) << "one argument belongs to each option";
    EXPECT_EQ(request.reseller,
              (std::vector<ResellerSetting>{{OD_T("PDFPRINTERNAME"), OD_T("Acme PDF")}, {OD_T("a"), OD_T("b=c")}}));
    EXPECT_EQ(request.settings, OdString(OD_T("host.ini")));
    EXPECT_FALSE(understood({OD_T("list")}).settings.has_value());
    EXPECT_TRUE(understood({OD_T("list")}).reseller.empty());
    for (const OdChar* text : {OD_T("PDFPRINTERNAME"), OD_T("=x"), OD_T("k=")})
        EXPECT_THAT(refused({OD_T("list"), OD_T("--reseller"), text}),
                    HasSubstr("--reseller needs KEY=VALUE: '" + odToUtf8(text) + "'"));
}

TEST(PlothostArguments, eachCommandHasItsHelp)
{
    const auto help = [](const OdChar* command)
    {
        const ParsedArguments parsed = parse({command, OD_T("--help")});
        EXPECT_FALSE(parsed.request.has_value());
        EXPECT_EQ(parsed.status, exitYes);
        EXPECT_EQ(parsed.error, "");
        return parsed.output;
    };
    EXPECT_THAT(help(OD_T("list")), HasSubstr("--json"));
    EXPECT_THAT(help(OD_T("devmode")),
                testing::AllOf(HasSubstr("NAME"), HasSubstr("--out"), HasSubstr("--background")));
    EXPECT_THAT(help(OD_T("edit")), testing::AllOf(HasSubstr("NAME"), HasSubstr("--printer"), HasSubstr("--paper"),
                                                   HasSubstr("--json"), HasSubstr("driver type")));
    EXPECT_THAT(help(OD_T("create")),
                testing::AllOf(HasSubstr("PRINTER"), HasSubstr("FILE"), Not(HasSubstr("--json"))));
    EXPECT_THAT(help(OD_T("show")), testing::AllOf(HasSubstr("FILE"), HasSubstr("--json")));
    EXPECT_THAT(help(OD_T("commands")), HasSubstr("commands"));
}

TEST(PlothostArguments, versionIsOneLine)
{
    const ParsedArguments parsed = parse({OD_T("--version")});
    EXPECT_FALSE(parsed.request.has_value());
    EXPECT_EQ(parsed.status, exitYes);
    EXPECT_TRUE(std::regex_match(parsed.output, std::regex("plothost [0-9]+\\.[0-9]+\\.[0-9]+\n"))) << parsed.output;
}

TEST(PlothostArguments, anUnknownCommandIsNamedWithTheNearest)
{
    EXPECT_THAT(refused({OD_T("devmod"), OD_T("x.pc3")}),
                testing::AllOf(HasSubstr("unknown command 'devmod'"), HasSubstr("did you mean 'devmode'?")));
    EXPECT_THAT(refused({OD_T("print")}), testing::AllOf(HasSubstr("unknown command 'print'"), Not(HasSubstr("mean"))));
    EXPECT_THAT(refused({OD_T("")}), HasSubstr("unknown command ''"));
}

TEST(PlothostArguments, anUnknownOptionIsNamedWithTheNearest)
{
    EXPECT_THAT(refused({OD_T("--langage"), OD_T("de"), OD_T("list")}), HasSubstr("did you mean '--language'?"));
    EXPECT_THAT(refused({OD_T("list"), OD_T("--jsn")}), HasSubstr("did you mean '--json'?"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("--ot=x"), OD_T("n")}), HasSubstr("did you mean '--out'?"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("--jsno")}), HasSubstr("'--jsno'"))
        << "the option explains more than the missing name";
    EXPECT_THAT(refused({OD_T("list"), OD_T("--out"), OD_T("x")}), HasSubstr("'list' has no option '--out'"));
    EXPECT_THAT(refused({OD_T("show"), OD_T("--background"), OD_T("x")}), HasSubstr("'show' has no option"));
    EXPECT_THAT(refused({OD_T("--json")}), HasSubstr("unknown option '--json'"));
}

TEST(PlothostArguments, missingAndSuperfluousArguments)
{
    EXPECT_THAT(refused({OD_T("devmode")}), testing::AllOf(HasSubstr("NAME"), HasSubstr("'plothost devmode --help'")));
    EXPECT_THAT(refused({OD_T("edit")}), HasSubstr("NAME"));
    EXPECT_THAT(refused({OD_T("edit"), OD_T("")}), HasSubstr("NAME is empty"));
    EXPECT_THAT(refused({OD_T("create"), OD_T("p")}), HasSubstr("FILE"));
    EXPECT_THAT(refused({OD_T("create")}), HasSubstr("PRINTER"));
    EXPECT_THAT(refused({OD_T("show")}), HasSubstr("FILE"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("Plotter"), OD_T("A")}),
                testing::AllOf(HasSubstr("unexpected argument 'A'"), HasSubstr("quotation marks")));
    EXPECT_THAT(refused({OD_T("list"), OD_T("x")}), HasSubstr("unexpected argument 'x'"));
    EXPECT_THAT(refused({OD_T("list"), OD_T("commands")}), HasSubstr("unexpected argument 'commands'"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("")}), HasSubstr("NAME is empty"));
    EXPECT_THAT(refused({OD_T("create"), OD_T(""), OD_T("x.pc3")}), HasSubstr("PRINTER is empty"));
    EXPECT_THAT(refused({OD_T("show"), OD_T("")}), HasSubstr("FILE is empty"));
}

TEST(PlothostArguments, anOptionWithoutItsValueIsNamed)
{
    for (const OdChar* option :
         {OD_T("--search-path"), OD_T("--language"), OD_T("--module"), OD_T("--settings"), OD_T("--reseller")})
    {
        EXPECT_THAT(refused({OD_T("list"), option}), HasSubstr(odToUtf8(option) + " needs a value"));
        EXPECT_THAT(refused({OdString(option) + OD_T("="), OD_T("list")}),
                    HasSubstr(odToUtf8(option) + " needs a value"));
    }
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("x"), OD_T("--out")}), HasSubstr("--out needs a value"));
    EXPECT_THAT(refused({OD_T("edit"), OD_T("x"), OD_T("--paper")}), HasSubstr("--paper needs a value"));
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("--out="), OD_T("x")}), HasSubstr("--out needs a value"));
}

TEST(PlothostArguments, theBackgroundCheckHasNoBytesToWrite)
{
    EXPECT_THAT(refused({OD_T("devmode"), OD_T("x"), OD_T("--background"), OD_T("--out"), OD_T("f")}),
                HasSubstr("--background"));
}

TEST(PlothostArguments, aNewConfigurationEndsInPc3)
{
    EXPECT_THAT(refused({OD_T("create"), OD_T("p"), OD_T("plan.pcx")}), HasSubstr("FILE must end in .pc3"));
    EXPECT_THAT(refused({OD_T("create"), OD_T("p"), OD_T("pc3")}), HasSubstr("FILE must end in .pc3"));
}

TEST(PlothostArguments, textThatIsNoUnicodeDoesNotStopIt)
{
    const OdChar lone[] = {0xD800, 'x', 0};
    EXPECT_EQ(understood({OD_T("devmode"), OdString(lone)}).name, OD_T("\uFFFDx"));
}
