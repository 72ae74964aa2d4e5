#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "spooler/DevModeView.h"
#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

#include <iosfwd>
#include <span>
#include <string>
#include <utility>
#include <vector>

// A configuration that exposes importing with insertion.
struct Configuration : GmPlotCfg3
{
    using GmPlotCfg3::fromDevMode;
};

// A copy that shares nothing: plain copies share custom data, destination and flags.
Configuration ownCopy(const Configuration& other);

// Everything in a configuration, one line per item, including the members that are in no file.
std::vector<std::string> describe(const Configuration& configuration);

// A DEVMODEW to import.
struct Block
{
    DEVMODEW fields = {}; // its dmDriverExtra is ignored
    std::vector<BYTE> privateBytes;

    // fields.dmSize bytes of public part (zeros behind the known fields), then the private bytes.
    std::vector<BYTE> bytes() const;

    // Fills the field's 32 characters with the text and zeros.
    void setFormName(OdStringView text);
};

// The results of an import.
struct Outcome
{
    bool succeeded = false;
    bool modified = false;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

// A room with one printer that has margins, and configurations for it. Ends with everything closed.
class DevModeTest : public testing::Test
{
protected:
    static constexpr const OdChar* plotter = OD_T("Plotter A");
    static constexpr const OdChar* driver = OD_T("Acme HP-GL");
    static constexpr const OdChar* longPaperName = OD_T("A paper name of more than thirty-one characters");

    DevModeTest();
    void TearDown() override;

    // The driver's block: A4, 600 dpi, version 0x401, default source 7, TrueType option 2, private bytes 01 to 07, F8.
    static Block driversBlock();

    // Private bytes, a version and a paper, but nothing imported: as read from a file.
    static Configuration storedConfiguration();

    // Imports the block from memory of exactly its length.
    static Outcome takeOver(Configuration& configuration, const Block& block, const OdChar* printerName = plotter,
                            bool insert = false);

    room::Printer& addTwin(const OdString& name);
    void addPaper(int code, const OdString& name);

    // Calls since the test began.
    int calls(room::Call call) const { return m_room.count(call); }
    // How the last device context was created.
    room::CallRecord lastContext() const;

    PrinterRoom m_room;
    room::Printer& m_printer;
    Configuration cfg = storedConfiguration();
    Configuration settled = storedConfiguration(); // has imported the driver's block
};
