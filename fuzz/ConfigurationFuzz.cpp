// Any file as a configuration: it is refused, or what is written from it reads back as an equal one, bound to the same
// printer.

#include "fuzz/FileInput.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/OpenConfiguration.h"
#include "pia_tree/CPIAParser.h"
#include "tests/support/RecordedAsserts.h"
#include "tests/support/room/PrinterRoom.h"
#include "tests/unit/pia/RoundTrip.h"

#include <gtest/gtest.h>

namespace
{
// Goes through a file, which keeps the whole tree, and is bound to the same printer again.
void expectKeptByAFile(const OpenConfiguration& configuration)
{
    CPBlock written(OD_T(""));
    ASSERT_TRUE(configuration.writeToBlock(written));
    expectRoundTrip(written);
    CPIAParser parser;
    ASSERT_TRUE(parser.parse(bytesOf(written, pia::Form::plain)));
    OpenConfiguration again;
    bool modified = true;
    ASSERT_TRUE(again.init(parser, modified));
    // Without a driver there is nothing to bind, and the flag is left alone.
    EXPECT_EQ(modified, configuration.m_meta.m_win_driver_name.isEmpty());
    EXPECT_EQ(again.m_meta.m_win_device_name, configuration.m_meta.m_win_device_name);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CPIAParser parser;
    if (!parser.parse(fileFrom(data, size)))
        return 0;
    const RecordedAsserts asserts;
    PrinterRoom printers;
    printers.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL"), .port = OD_T("FILE:")});
    for (const OdChar* name : {OD_T("DesignJet-3500CP"), OD_T("Lanier-MP-W7100")})
        printers.add({.name = name, .driver = name, .port = OD_T("LPT1:"), .papers = {{9, OD_T("A4")}}});
    for (const bool before : {false, true})
    {
        OpenConfiguration configuration;
        bool modified = before;
        if (!configuration.init(parser, modified))
        {
            // Only a bound configuration can lose its printer, and that does not change it.
            if (configuration.m_meta.m_win_driver_name.isEmpty())
            {
                EXPECT_EQ(modified, before);
            }
            continue;
        }
        expectReadsBackEqual(configuration);
        expectKeptByAFile(configuration);
        expectSoundDevMode(configuration);
    }
    EXPECT_EQ(printers.openHandles(), 0);
    EXPECT_TRUE(RecordedAsserts::reports().empty());
    return 0;
}
