// Importing a DEVMODEW into a configuration: what is accepted, and what the printer is asked.

#include "tests/unit/devmode/DevModeFixture.h"

#include <algorithm>

namespace
{
class FromDevMode : public DevModeTest
{
};

constexpr Outcome failed{false, false};
constexpr Outcome unchanged{true, false};
constexpr Outcome changed{true, true};
} // namespace

// -- What is accepted ------------------------------------------------------------------------------------------------

TEST_F(FromDevMode, theDriversOwnBlockIsTakenOverAndThenChangesNothing)
{
    Configuration fresh = ownCopy(cfg);
    EXPECT_EQ(takeOver(fresh, driversBlock()), changed);
    EXPECT_EQ(takeOver(fresh, driversBlock()), unchanged);
}

TEST_F(FromDevMode, aConfigurationThatHasNoBlockItselfTakesNoneOver)
{
    Configuration none = ownCopy(settled);
    none.m_custom = nullptr;
    EXPECT_EQ(takeOver(none, driversBlock()), failed);

    none = ownCopy(settled);
    none.m_meta.m_win_device_name = OD_T("Nobody");
    EXPECT_EQ(takeOver(none, driversBlock(), OD_T("Nobody")), failed);
}

TEST_F(FromDevMode, modifiedIsClearedWhateverHappens)
{
    Configuration none;
    bool modified = true;
    const std::vector<BYTE> bytes = driversBlock().bytes();
    EXPECT_FALSE(none.updateFromDevMode(DevModeView(bytes), plotter, modified));
    EXPECT_FALSE(modified);
}

TEST_F(FromDevMode, aBlockThatIsNoneIsRefused)
{
    bool modified = true;
    EXPECT_FALSE(settled.updateFromDevMode(DevModeView(), plotter, modified));
    EXPECT_FALSE(modified);
}

TEST_F(FromDevMode, aBlockOfOtherSizesIsRefusedAndChangesNothing)
{
    const std::vector<std::string> before = describe(settled);
    const auto expectRefused = [&](const Block& block)
    {
        Configuration each = ownCopy(settled);
        EXPECT_EQ(takeOver(each, block), failed) << block.fields.dmSize << " + " << block.privateBytes.size();
        EXPECT_EQ(describe(each), before);
    };
    for (const WORD size : {WORD{76}, WORD{216}, WORD{219}, WORD{221}, WORD{65535}})
    {
        Block block = driversBlock();
        block.fields.dmSize = size;
        expectRefused(block);
    }
    for (const std::size_t extra : {0U, 7U, 9U, 65535U})
    {
        Block block = driversBlock();
        block.privateBytes.resize(extra);
        expectRefused(block);
    }
}

// Private bytes of the same total length may still have another layout.
TEST_F(FromDevMode, aBlockOfTheSameLengthButAnotherDivisionIsRefused)
{
    Block block = driversBlock();
    block.fields.dmSize = 224;
    block.privateBytes.resize(4);
    EXPECT_EQ(takeOver(settled, block), failed);
}

TEST_F(FromDevMode, anotherPrintersBlockIsRefusedButLetterCaseDoesNotMatter)
{
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("Plotter B")), failed);
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("")), failed);
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("pLOTTER a")), unchanged);
}

// The device name in the block is ignored: drivers leave garbage there.
TEST_F(FromDevMode, theDeviceNameInTheBlockDoesNotMatter)
{
    Block block = driversBlock();
    std::fill(std::begin(block.fields.dmDeviceName), std::end(block.fields.dmDeviceName), WCHAR{'?'});
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

TEST_F(FromDevMode, aRefusedBlockChangesNothing)
{
    const Configuration before = ownCopy(settled);
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    block.fields.dmSize = 216;
    EXPECT_EQ(takeOver(settled, block), failed);
    EXPECT_EQ(describe(settled), describe(before));
}

TEST_F(FromDevMode, theExportedFormMeasuresTheBlockByItsOwnSizes)
{
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    const DevModeBlock owned = DevModeBlock::copyOf(DevModeView(block.bytes()));
    bool modified = false;
    EXPECT_TRUE(settled.updateFromDevMode(*owned.get(), plotter, modified));
    EXPECT_TRUE(modified);
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);

    modified = false;
    EXPECT_TRUE(settled.fromDevMode(*owned.get(), plotter, true, modified));
}

TEST_F(FromDevMode, theExportedFormAddsNoNumber)
{
    settled.m_custom->m_numbers.erase(OD_T("dmSpecVersion"));
    const DevModeBlock owned = DevModeBlock::copyOf(DevModeView(driversBlock().bytes()));
    bool modified = false;
    EXPECT_FALSE(settled.updateFromDevMode(*owned.get(), plotter, modified));
    EXPECT_EQ(settled.m_custom->m_numbers.count(OD_T("dmSpecVersion")), 0U);
}

TEST_F(FromDevMode, aMisalignedBlockIsTakenOver)
{
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    std::vector<BYTE> shifted = block.bytes();
    shifted.insert(shifted.begin(), 0xEE);
    bool modified = false;
    EXPECT_TRUE(settled.updateFromDevMode(DevModeView(std::span<const BYTE>(shifted).subspan(1)), plotter, modified));
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);
}

// -- Sizes and private bytes -----------------------------------------------------------------------------------------

TEST_F(FromDevMode, theSizesAreStoredAsPlainNumbers)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T(" +220 bytes");
    settled.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("08");
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSize")], OD_T("220"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDriverExtra")], OD_T("8"));
}

TEST_F(FromDevMode, otherPrivateBytesAreAChangeAndAreStoredInUpperCase)
{
    Block block = driversBlock();
    block.privateBytes = {0x00, 0x9A, 0xBC, 0xDE, 0xF0, 0x0F, 0xFF, 0x10};
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")], OD_T("009ABCDEF00FFF10"));
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

TEST_F(FromDevMode, onePrivateBitIsAChange)
{
    for (std::size_t i = 0; i < 8; ++i)
    {
        Configuration each = ownCopy(settled);
        Block block = driversBlock();
        block.privateBytes[i] ^= 1;
        EXPECT_EQ(takeOver(each, block), changed) << i;
    }
}

TEST_F(FromDevMode, withoutPrivateBytesTheStoredTextIsLeftAlone)
{
    settled.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("0");
    settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OD_T("left from before");
    Block block = driversBlock();
    block.privateBytes.clear();
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")], OD_T("left from before"));
    settled.m_custom->m_binaries.clear();
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_TRUE(settled.m_custom->m_binaries.empty());
}

// -- Ports and model names -------------------------------------------------------------------------------------------

TEST_F(FromDevMode, onlyCreationReadsThePortsAndNamesTheModel)
{
    settled.m_io.m_plot_to_file = false;
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_FALSE(settled.m_io.m_plot_to_file);
    EXPECT_TRUE(settled.m_meta.m_canonical_family_name.isEmpty());

    EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
    EXPECT_TRUE(settled.m_io.m_plot_to_file);
    EXPECT_EQ(settled.m_meta.m_canonical_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_canonical_model_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_model_name, OD_T("System"));
}

TEST_F(FromDevMode, onlyAFilePortAloneMeansPlotToFile)
{
    struct Case
    {
        const OdChar* port;
        bool toFile;
    };
    for (const Case& printer : {Case{OD_T("FILE:"), true}, Case{OD_T("file"), true}, Case{OD_T("FiLe:"), true},
                                Case{OD_T("FILE:,LPT1:"), false}, Case{OD_T("LPT1:"), false},
                                Case{OD_T("FILE::"), false}, Case{OD_T("C:\\FILE:"), false}})
    {
        m_printer.port = room::Text(printer.port);
        settled.m_io.m_plot_to_file = !printer.toFile;
        EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
        EXPECT_EQ(settled.m_io.m_plot_to_file, printer.toFile) << OdString(printer.port);
    }
}

TEST_F(FromDevMode, theModelIsNamedAlsoWhenThePortsCannotBeRead)
{
    for (const bool before : {true, false})
    {
        m_printer.port.reset();
        settled.m_io.m_plot_to_file = before;
        settled.m_meta.m_localized_model_name = OD_T("");
        EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
        EXPECT_EQ(settled.m_io.m_plot_to_file, before);
        EXPECT_EQ(settled.m_meta.m_localized_model_name, OD_T("System"));
    }
}

// -- Papers ----------------------------------------------------------------------------------------------------------

// The papers may depend on the mode, for example on a tray. Changes before a failing step stay: here the names, which
// are set before the paper is looked up.
TEST_F(FromDevMode, theModelStaysNamedWhenThePaperFailsAfterwards)
{
    Block block = driversBlock();
    block.fields.dmPaperSize = 77; // not listed
    settled.m_io.m_plot_to_file = false;
    EXPECT_FALSE(takeOver(settled, block, plotter, true).succeeded);
    EXPECT_EQ(settled.m_meta.m_canonical_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_canonical_model_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_model_name, OD_T("System"));
    EXPECT_TRUE(settled.m_io.m_plot_to_file) << "the port is known before the paper too";
    EXPECT_EQ(m_room.openContexts(), 0);
}

TEST_F(FromDevMode, thePapersAreAskedForWithTheBlockThatIsTakenOver)
{
    Block block = driversBlock();
    block.fields.dmDefaultSource = 3;
    EXPECT_EQ(takeOver(settled, block), changed);
    int asked = 0;
    for (const room::CallRecord& call : m_room.calls())
        if (call.call == room::Call::deviceCapabilities && call.devMode == block.bytes())
            ++asked;
    EXPECT_EQ(asked, 4) << "codes and names, sizes and fills";
}

// -- Device context --------------------------------------------------------------------------------------------------

TEST_F(FromDevMode, theDeviceContextIsMadeForTheBlockUnderTheStoredDriverName)
{
    Block block = driversBlock();
    block.fields.dmCopies = 7;
    settled.m_meta.m_win_driver_name = OD_T("not the driver");
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(OdString(lastContext().text), OD_T("not the driver"));
    EXPECT_EQ(OdString(lastContext().printer), OdString(plotter));
    EXPECT_EQ(lastContext().devMode, block.bytes());
}

TEST_F(FromDevMode, aDriverThatWritesIntoItsNamesLeavesOursAlone)
{
    m_printer.scribbles = true;
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_meta.m_win_device_name, OdString(plotter));
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OdString(driver));
}

TEST_F(FromDevMode, anEmptyDriverNameIsPassedOnAsEmptyText)
{
    settled.m_meta.m_win_driver_name = OD_T("");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(lastContext().call, room::Call::createDC);
    EXPECT_FALSE(lastContext().null);
    EXPECT_EQ(OdString(lastContext().text), OD_T(""));
}

TEST_F(FromDevMode, withoutADeviceContextTheRestIsStillTakenOver)
{
    m_room.refuse(room::Call::createDC);
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    const std::int32_t depth = settled.m_res_color_mem.m_color_depth;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);
    EXPECT_EQ(settled.m_res_color_mem.m_color_depth, depth);
}

TEST_F(FromDevMode, withoutADeviceContextAPrintQualityIsNotTakenOver)
{
    m_room.refuse(room::Call::createDC);
    Block block = driversBlock();
    block.fields.dmPrintQuality = DMRES_HIGH;
    block.fields.dmYResolution = 1;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_name, OD_T("600x600_None"));
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_y, 600.0);
}
