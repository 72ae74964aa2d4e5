// Any configuration, any device mode of any length and any printer: a device mode that is built is as long as it says,
// an import leaves a valid configuration, and nothing stays open.

#include "fuzz/FuzzTarget.h"
#include "fuzz/OpenConfiguration.h"
#include "fuzz/ScriptedConfiguration.h"
#include "fuzz/ScriptedRoom.h"
#include "pia_tree/CPIAParser.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"
#include "tests/support/RecordedAsserts.h"
#include "tests/unit/pia/RoundTrip.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace
{
// In memory of exactly the block's length and at an odd address, as systems deliver it.
void takeOver(GmPlotCfg3& cfg, std::span<const BYTE> block, const OdString& printerName)
{
    const auto exact = std::make_unique<BYTE[]>(block.size() + 1);
    std::ranges::copy(block, exact.get() + 1);
    bool modified = true;
    cfg.updateFromDevMode(DevModeView(std::span<const BYTE>(exact.get() + 1, block.size())), printerName, modified);
}

// For a caller that has no length: the block states its length, and is that long.
void takeOverClaimed(GmPlotCfg3& cfg, std::span<const BYTE> block, const OdString& printerName)
{
    DEVMODEW dm = {};
    if (!block.empty())
        std::memcpy(&dm, block.data(), std::min(block.size(), sizeof dm));
    const std::size_t claimed = std::max<std::size_t>(std::size_t{dm.dmSize} + dm.dmDriverExtra, smallestDevMode);
    const auto exact = std::make_unique<BYTE[]>(claimed);
    std::ranges::copy(block.first(std::min(block.size(), claimed)), exact.get());
    bool modified = true;
    cfg.updateFromDevMode(*reinterpret_cast<const DEVMODEW*>(exact.get()), printerName, modified);
}

void takeOwnBlockOver(Input& input, GmPlotCfg3& cfg)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    std::vector<BYTE> block(bytes.begin(), bytes.end());
    for (std::size_t changes = input.below(8); changes > 0 && !block.empty(); --changes)
        block[input.upTo(block.size() - 1)] = input.number<BYTE>();
    takeOver(cfg, block, cfg.m_meta.m_win_device_name);
}

// As in the editor: through the driver and back.
void passThroughDriver(GmPlotCfg3& cfg)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    const OdString name = cfg.m_meta.m_win_device_name;
    try
    {
        const PrinterHandle printer = openPrinter(name.c_str());
        if (bytes.isEmpty() || !printer)
            return;
        const DevModeMerge merge = mergeDevMode(nullptr, printer.get(), name.c_str(),
                                                std::span(bytes.begin(), bytes.end()), DM_IN_BUFFER | DM_OUT_BUFFER);
        bool changed = false;
        cfg.updateFromDevMode(merge.block.view(), name, changed);
    }
    catch (const std::runtime_error&)
    {
        // The driver threw, and code that asks it directly passes that on.
    }
}

// Written, read, and bound again to whichever printers there are.
void bindAgain(const GmPlotCfg3& cfg)
{
    OpenConfiguration written;
    static_cast<GmPlotCfg3&>(written) = cfg;
    CPBlock root(OD_T(""));
    EXPECT_TRUE(written.writeToBlock(root));
    CPIAParser parser;
    EXPECT_TRUE(parser.parse(bytesOf(root, pia::Form::plain)));
    OpenConfiguration bound;
    bool modified = false;
    try
    {
        if (!bound.init(parser, modified))
        {
            EXPECT_FALSE(modified);
        }
    }
    catch (const std::runtime_error&)
    {
        // init is called by read, which handles a driver that throws.
    }
}

bool takeOwnBlockBack(GmPlotCfg3& cfg, bool& modified)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    return cfg.updateFromDevMode(DevModeView(std::span(bytes.begin(), bytes.end())), cfg.m_meta.m_win_device_name,
                                 modified);
}

// Importing a configuration's own block changes what it does not accept into a form of its own, which takes a few
// rounds at most. Bounds that count as empty are computed anew each time.
void expectSettles(GmPlotCfg3 cfg)
{
    bool modified = true;
    for (int round = 0; round < 4; ++round)
    {
        if (!takeOwnBlockBack(cfg, modified))
            return;
    }
    EXPECT_EQ(modified, cfg.m_media.emptyBounds());
}

void step(Input& input, ScriptedRoom& printers, GmPlotCfg3& cfg)
{
    switch (input.below(10))
    {
    case 0:
        return changeConfiguration(input, cfg);
    case 1:
        return printers.change(input);
    case 2:
        printers.sabotage(input);
        return takeOver(cfg, someBlock(input), printers.someName(input));
    case 3:
        return takeOverClaimed(cfg, someBlock(input), cfg.m_meta.m_win_device_name);
    case 4:
        return takeOver(cfg, input.bytes(400), cfg.m_meta.m_win_device_name);
    case 5:
        printers.sabotage(input);
        return takeOwnBlockOver(input, cfg);
    case 6:
        printers.sabotage(input);
        return passThroughDriver(cfg);
    case 7:
        printers.sabotage(input);
        return bindAgain(cfg);
    case 8:
        printers.sabotage(input);
        if (const auto made = GmPlotCfg3::create(printers.someName(input)))
            cfg = *made;
        return;
    default:
        printers.sabotage(input);
        cfg.setToDefault();
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const RecordedAsserts asserts;
    ScriptedRoom printers(input);
    GmPlotCfg3 cfg = soundConfiguration();
    for (int steps = 0; steps < 12 && !input.isEmpty(); ++steps)
    {
        step(input, printers, cfg);
        printers.endSabotage();
        printers.expectLeftAsFound();
        expectSoundDevMode(cfg);
    }
    expectReadsBackEqual(cfg);
    if (printers.isHonest())
        expectSettles(cfg);
    printers.expectLeftAsFound();
    EXPECT_TRUE(RecordedAsserts::reports().empty());
    return 0;
}
