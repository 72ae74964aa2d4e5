// Reading and writing a whole configuration, and binding it to a printer.
#include "GarmPC3Editor/GmPlotCfg3.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPIAParser.h"
#include "tests/support/Blocks.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
// Exposes protected members.
class Configuration : public GmPlotCfg3
{
public:
    using GmPlotCfg3::init;
    using GmPlotCfg3::writeToBlock;
};

GmPlotCfg3 unbound()
{
    GmPlotCfg3 configuration;
    configuration.m_meta.m_driver_type = 3;
    configuration.m_media.m_size.m_name = OD_T("A4");
    configuration.m_io.m_pathname = OD_T("plots");
    configuration.m_res_color_mem.m_name = OD_T("colour");
    configuration.m_custom = new GmCustomNode;
    configuration.m_custom->setNumber(220, OD_T("dmSize"), true);
    return configuration;
}

GmPlotCfg3 bound()
{
    GmPlotCfg3 configuration = unbound();
    configuration.m_meta.m_win_device_name = OD_T("Plotter A");
    configuration.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    return configuration;
}

OdSharedPtr<CPBlock> treeOf(const GmPlotCfg3& configuration)
{
    auto root = blocks::make(OD_T(""));
    Configuration opened;
    static_cast<GmPlotCfg3&>(opened) = configuration;
    EXPECT_TRUE(opened.writeToBlock(*root));
    return root;
}

std::vector<std::string> topLevelOf(const CPBlock& root)
{
    std::vector<std::string> names;
    for (const auto& item : blocks::itemsOf(root))
        names.push_back(odToUtf8(item->name()));
    return names;
}

class PlotCfg : public PrinterRoomTest
{
protected:
    // Writes the tree and reads it as a configuration.
    OdSharedPtr<GmPlotCfg3> readBack(const CPBlock& root, bool& modified)
    {
        EXPECT_TRUE(CPIAOutput().write(root, file().c_str()));
        return GmPlotCfg3::read(file(), modified);
    }
    OdSharedPtr<GmPlotCfg3> readBack(const GmPlotCfg3& configuration, bool& modified)
    {
        return readBack(*treeOf(configuration), modified);
    }

    // Null, with modified unchanged.
    void expectRefused(const CPBlock& root)
    {
        for (const bool before : {false, true})
        {
            bool modified = before;
            EXPECT_TRUE(readBack(root, modified).isNull());
            EXPECT_EQ(modified, before);
        }
    }

    // Read, with modified unchanged.
    OdSharedPtr<GmPlotCfg3> expectRead(const CPBlock& root)
    {
        OdSharedPtr<GmPlotCfg3> configuration;
        for (const bool before : {false, true})
        {
            bool modified = before;
            configuration = readBack(root, modified);
            EXPECT_TRUE(configuration);
            EXPECT_EQ(modified, before);
        }
        return configuration;
    }

    OdString file() const { return folder.at("a.pc3"); }

    TemporaryFolder folder;
};
} // namespace

TEST_F(PlotCfg, theTopLevelHasAFixedOrder)
{
    EXPECT_EQ(topLevelOf(*treeOf(unbound())),
              (std::vector<std::string>{"meta", "media", "io", "res_color_mem", "custom"}));
    GmPlotCfg3 plain = unbound();
    plain.m_custom = nullptr;
    EXPECT_EQ(topLevelOf(*treeOf(plain)), (std::vector<std::string>{"meta", "media", "io", "res_color_mem"}));
}

TEST_F(PlotCfg, whatWasWrittenReadsBackEqual)
{
    const GmPlotCfg3 configuration = unbound();
    ASSERT_TRUE(configuration.write(file()));
    bool modified = false;
    const auto back = GmPlotCfg3::read(file(), modified);
    ASSERT_TRUE(back);
    EXPECT_EQ(back.refCount(), 1);
    EXPECT_EQ(blocks::linesOf(*treeOf(*back)), blocks::linesOf(*treeOf(configuration)));
}

TEST_F(PlotCfg, eachRequiredBlockMissingOrBadRefusesTheFile)
{
    const auto root = treeOf(unbound());
    for (OdStringView key : {OD_T("meta"), OD_T("media"), OD_T("io"), OD_T("res_color_mem")})
    {
        SCOPED_TRACE(odToUtf8(key));
        expectRefused(*blocks::without(*root, key));
        expectRefused(*blocks::with(*root, key, blocks::make(key)));
        expectRefused(*blocks::with(*root, key, blocks::str(key, OD_T("text"))));
    }
    expectRefused(*blocks::make(OD_T("")));
}

TEST_F(PlotCfg, aFileThatIsNoneIsRefused)
{
    for (const bool before : {false, true})
    {
        bool modified = before;
        EXPECT_TRUE(GmPlotCfg3::read(folder.at("missing.pc3"), modified).isNull());
        EXPECT_TRUE(GmPlotCfg3::read(OD_T(""), modified).isNull());
        folder.addFile("bad.pc3", "no configuration\n");
        EXPECT_TRUE(GmPlotCfg3::read(folder.at("bad.pc3"), modified).isNull());
        EXPECT_EQ(modified, before);
    }
}

TEST_F(PlotCfg, aParserThatReadNothingFailsInit)
{
    CPIAParser parser;
    Configuration configuration;
    bool modified = true;
    EXPECT_FALSE(configuration.init(parser, modified));
    EXPECT_TRUE(modified);
}

TEST_F(PlotCfg, badCustomDataIsDroppedAndNotWrittenBack)
{
    const auto root = treeOf(unbound());
    const auto name = blocks::str(OD_T("name"), OD_T("k"));
    const auto value = blocks::num(OD_T("value"), OD_T("1"));
    for (const auto& bad : {blocks::make(OD_T("0"), {name, value, value}), blocks::make(OD_T("0"), {value, value})})
    {
        const auto configuration =
            expectRead(*blocks::with(*root, OD_T("custom"), blocks::make(OD_T("custom"), {bad})));
        ASSERT_TRUE(configuration);
        EXPECT_TRUE(configuration->m_custom.isNull());
        EXPECT_EQ(topLevelOf(*treeOf(*configuration)),
                  (std::vector<std::string>{"meta", "media", "io", "res_color_mem"}));
    }
}

TEST_F(PlotCfg, anEmptyCustomBlockGivesEmptyCustomDataAndIsWrittenBack)
{
    const auto root = blocks::with(*treeOf(unbound()), OD_T("custom"), blocks::make(OD_T("custom")));
    const auto configuration = expectRead(*root);
    ASSERT_TRUE(configuration && configuration->m_custom);
    EXPECT_EQ(blocks::linesOf(*treeOf(*configuration)), blocks::linesOf(*root));
}

TEST_F(PlotCfg, aCustomItemThatIsNoBlockIsAsMissing)
{
    const auto configuration =
        expectRead(*blocks::with(*treeOf(unbound()), OD_T("custom"), blocks::str(OD_T("custom"), OD_T("text"))));
    ASSERT_TRUE(configuration);
    EXPECT_TRUE(configuration->m_custom.isNull());
}

TEST_F(PlotCfg, withoutDriverNameNoPrinterIsAskedAndModifiedStays)
{
    room.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL")});
    GmPlotCfg3 configuration = unbound();
    configuration.m_meta.m_win_device_name = OD_T("Plotter A");
    expectRead(*treeOf(configuration));
    EXPECT_TRUE(room.calls().empty());
}

TEST_F(PlotCfg, theSamePrinterIsNoModification)
{
    room.add({.name = OD_T("Plotter A"), .driver = OD_T("ACME hp-gl")});
    bool modified = true;
    const auto configuration = readBack(bound(), modified);
    ASSERT_TRUE(configuration);
    EXPECT_FALSE(modified);
    EXPECT_EQ(configuration->m_meta.m_win_device_name, OD_T("Plotter A"));
}

TEST_F(PlotCfg, anotherPrinterWithTheDriverIsAModification)
{
    room.add({.name = OD_T("Other"), .driver = OD_T("Something")});
    room.add({.name = OD_T("Plotter B"), .driver = OD_T("acme HP-GL")});
    bool modified = false;
    const auto configuration = readBack(bound(), modified);
    ASSERT_TRUE(configuration);
    EXPECT_TRUE(modified);
    EXPECT_EQ(configuration->m_meta.m_win_device_name, OD_T("Plotter B"));
    EXPECT_EQ(configuration->m_meta.m_win_driver_name, OD_T("Acme HP-GL"));
}

TEST_F(PlotCfg, withoutPrinterForTheDriverASoundFileIsRefusedAndNotModified)
{
    room.add({.name = OD_T("Plotter A"), .driver = OD_T("Something")});
    bool modified = true;
    EXPECT_TRUE(readBack(bound(), modified).isNull());
    EXPECT_FALSE(modified);
}

TEST_F(PlotCfg, aDriverThatThrowsRefusesTheFileAndLeavesModified)
{
    room.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL")});
    room.onCall(room::Call::getPrinterDriver, OD_T("Plotter A"),
                [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    for (const bool before : {false, true})
    {
        bool modified = before;
        EXPECT_TRUE(readBack(bound(), modified).isNull());
        EXPECT_EQ(modified, before);
    }
}

TEST_F(PlotCfg, theDeviceModeMembersAreInNoFile)
{
    GmPlotCfg3 configuration = unbound();
    const auto lines = blocks::linesOf(*treeOf(configuration));
    configuration.m_devModeFields = 0x4001000;
    configuration.m_ditherType = 5;
    configuration.m_duplex = 3;
    EXPECT_EQ(blocks::linesOf(*treeOf(configuration)), lines);
    bool modified = false;
    const auto back = readBack(configuration, modified);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->m_devModeFields, 0U);
    EXPECT_EQ(back->m_ditherType, 1U);
    EXPECT_EQ(back->m_duplex, 1U);
}

TEST_F(PlotCfg, anEmptyPathWritesNothing)
{
    const auto here = std::filesystem::current_path();
    std::filesystem::current_path(folder.path().c_str());
    EXPECT_FALSE(unbound().write(OD_T("")));
    EXPECT_TRUE(folder.names().empty());
    std::filesystem::current_path(here);
}

TEST_F(PlotCfg, aPathThatCannotBeWrittenIsAnsweredFalse)
{
    EXPECT_FALSE(unbound().write(folder.at("no such folder/a.pc3")));
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(PlotCfg, writingReplacesTheFile)
{
    ASSERT_TRUE(bound().write(file()));
    ASSERT_TRUE(unbound().write(file()));
    EXPECT_EQ(folder.names(), (std::set<std::string>{"a.pc3"}));
    CPIAParser parser;
    ASSERT_TRUE(parser.read(file().c_str()));
    EXPECT_EQ(blocks::linesOf(*parser.root()), blocks::linesOf(*treeOf(unbound())));
}

TEST_F(PlotCfg, aFreshConfigurationHasTheDefaults)
{
    const GmPlotCfg3 configuration;
    EXPECT_EQ(configuration.m_io.m_type, 2);
    EXPECT_TRUE(configuration.m_io.m_pathname.isEmpty());
    EXPECT_TRUE(configuration.m_custom.isNull());
    EXPECT_EQ(configuration.m_devModeFields, 0U);
    EXPECT_EQ(configuration.m_ditherType, 1U);
    EXPECT_EQ(configuration.m_duplex, 1U);
    bool modified = false;
    EXPECT_TRUE(readBack(configuration, modified));
}

TEST_F(PlotCfg, copiesHaveEveryMemberAndShareWhatIsShared)
{
    GmPlotCfg3 configuration = bound();
    configuration.m_media.m_destination = new GmDestinationNode;
    configuration.m_meta.m_default_system_cfg = new bool(false);
    configuration.m_res_color_mem.m_lines_overwrite = new bool(false);
    configuration.m_devModeFields = 7;
    configuration.m_ditherType = 8;
    configuration.m_duplex = 9;
    const GmPlotCfg3 copy = configuration;
    GmPlotCfg3 assigned;
    assigned = configuration;
    for (const GmPlotCfg3* other : {&copy, static_cast<const GmPlotCfg3*>(&assigned)})
    {
        EXPECT_EQ(blocks::linesOf(*treeOf(*other)), blocks::linesOf(*treeOf(configuration)));
        EXPECT_EQ(other->m_devModeFields, 7U);
        EXPECT_EQ(other->m_ditherType, 8U);
        EXPECT_EQ(other->m_duplex, 9U);
        EXPECT_EQ(other->m_custom, configuration.m_custom);
        EXPECT_EQ(other->m_media.m_destination, configuration.m_media.m_destination);
        EXPECT_EQ(other->m_meta.m_default_system_cfg, configuration.m_meta.m_default_system_cfg);
        EXPECT_EQ(other->m_res_color_mem.m_lines_overwrite, configuration.m_res_color_mem.m_lines_overwrite);
    }
    configuration.m_custom->setNumber(40, OD_T("dmSize"), false);
    std::int32_t size = 0;
    EXPECT_TRUE(copy.m_custom->getNumber(OD_T("dmSize"), size));
    EXPECT_EQ(size, 40);
}

TEST_F(PlotCfg, theLastCopyFreesTheCustomData)
{
    const auto custom = [&]
    {
        const GmPlotCfg3 configuration = bound();
        const GmPlotCfg3 copy = configuration;
        GmPlotCfg3 assigned = unbound();
        const auto replaced = assigned.m_custom;
        assigned = copy;
        EXPECT_EQ(replaced.refCount(), 1) << "the custom data that was replaced";
        EXPECT_EQ(configuration.m_custom.refCount(), 3);
        return configuration.m_custom;
    }();
    EXPECT_EQ(custom.refCount(), 1);
}

TEST_F(PlotCfg, readingAgainReplacesCustomDataAndLeavesCopiesAlone)
{
    ASSERT_TRUE(unbound().write(file()));
    CPIAParser parser;
    ASSERT_TRUE(parser.read(file().c_str()));
    Configuration configuration;
    bool modified = false;
    ASSERT_TRUE(configuration.init(parser, modified));
    const GmPlotCfg3 copy = configuration;
    ASSERT_TRUE(configuration.init(parser, modified));
    EXPECT_FALSE(configuration.m_custom == copy.m_custom);
    EXPECT_EQ(copy.m_custom.refCount(), 1);
}

namespace
{
// The plain form of a file, for trees whose texts need no escapes.
std::string plainTextOf(const CPBlock& block)
{
    std::string text;
    for (const auto& item : blocks::itemsOf(block))
    {
        const std::string name = odToUtf8(item->name());
        switch (item->type())
        {
        case CPItem::eBlock:
            text += name + "{\n" + plainTextOf(blocks::asBlock(*item)) + "}\n";
            break;
        case CPItem::eBool:
            text += name + (static_cast<const CPBool&>(*item).value() ? "=TRUE\n" : "=FALSE\n");
            break;
        case CPItem::eStr:
            text += name + "=\"" + odToUtf8(static_cast<const CPText&>(*item).text()) + "\n";
            break;
        case CPItem::eNum:
            text += name + "=" + odToUtf8(static_cast<const CPText&>(*item).text()) + "\n";
            break;
        case CPItem::eBin:
            text += name + "=#" + odToUtf8(static_cast<const CPText&>(*item).text()) + "\n";
            break;
        }
    }
    return text;
}

std::string plainFile()
{
    GmPlotCfg3 configuration = unbound();
    configuration.m_media.m_destination = new GmDestinationNode;
    configuration.m_meta.m_default_system_cfg = new bool(false);
    configuration.m_custom->setRawData(OD_T("0123456789ABCDEF"), true);
    return "PIAFILEVERSION_2.0,PC3VER1\n" + plainTextOf(*treeOf(configuration));
}

// Whether the bytes are a configuration; if so, it must be writable.
bool isConfiguration(const std::string& bytes)
{
    CPIAParser parser;
    Configuration configuration;
    bool modified = false;
    if (!parser.parse(bytes) || !configuration.init(parser, modified))
        return false;
    CPBlock root(OD_T(""));
    EXPECT_TRUE(configuration.writeToBlock(root));
    return true;
}
} // namespace

TEST_F(PlotCfg, everyPrefixOfAFileIsRefusedOrWhole)
{
    const std::string file = plainFile();
    ASSERT_TRUE(isConfiguration(file));
    // Only the custom block, which is last, may be missing.
    const std::size_t withoutCustom = file.rfind("custom{");
    for (std::size_t size = 0; size < file.size(); ++size)
    {
        const bool whole = size + 1 == file.size() || size == withoutCustom || size + 1 == withoutCustom;
        EXPECT_EQ(isConfiguration(file.substr(0, size)), whole) << size;
    }
}

TEST_F(PlotCfg, changedBytesNeverCrash)
{
    const std::string file = plainFile();
    unsigned accepted = 0;
    for (std::size_t at = 0; at < file.size(); ++at)
        for (const char byte : {'\0', '\n', '"', '=', '{', '}', '#', '9', '\xFF'})
        {
            std::string changed = file;
            changed[at] = byte;
            accepted += isConfiguration(changed);
        }
    EXPECT_GT(accepted, 0U);
}
