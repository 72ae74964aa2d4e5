#include "GarmPC3Editor/Commands/EditedConfiguration.h"

#include "tests/support/PrinterRoomTest.h"
#include "tests/unit/commands/CommandTest.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <stdexcept>

namespace
{
class EditedConfigurationTest : public CommandTest
{
protected:
    void expectNothing(const EditedConfiguration& edited) const
    {
        EXPECT_TRUE(edited.cfg.isNull());
        EXPECT_EQ(edited.path, OD_T(""));
    }

    // The DocumentProperties calls that passed a device mode in and got one back.
    std::vector<room::CallRecord> merges() const
    {
        std::vector<room::CallRecord> found;
        for (const room::CallRecord& record : m_room.calls())
            if (record.call == room::Call::documentProperties && (record.detail & DM_IN_BUFFER) != 0)
                found.push_back(record);
        return found;
    }
};

TEST_F(EditedConfigurationTest, fileIsFoundAndKeepsItsFullPath)
{
    const OdString path = putConfiguration(OD_T("a.pc3"));
    const EditedConfiguration edited = openForEditing(OD_T("a.pc3"), {});
    ASSERT_TRUE(edited.cfg);
    EXPECT_EQ(edited.path, path);
    EXPECT_EQ(edited.cfg->m_media.m_size.m_name, OD_T("A3"));
}

TEST_F(EditedConfigurationTest, nameWithoutExtensionIsSearchedUnchanged)
{
    const OdString path = putConfiguration(OD_T("a.pc3"));
    EXPECT_EQ(openForEditing(OD_T("a"), {}).path, path);
}

TEST_F(EditedConfigurationTest, paperAskedForBecomesPaperOfFile)
{
    putConfiguration(OD_T("a.pc3"));
    const EditedConfiguration edited = openForEditing(OD_T("a.pc3"), OD_T("Any text at all"));
    ASSERT_TRUE(edited.cfg);
    EXPECT_EQ(edited.cfg->m_media.m_size.m_name, OD_T("Any text at all"));
}

TEST_F(EditedConfigurationTest, missingDamagedOrUnboundFileGivesNothing)
{
    putDamagedFile(OD_T("bad.pc3"));
    putConfiguration(OD_T("gone.pc3"), [](GmPlotCfg3& cfg) { cfg.m_meta.m_win_driver_name = OD_T("Gone"); });
    for (const OdChar* name : {OD_T("missing.pc3"), OD_T("bad.pc3"), OD_T("gone.pc3"), OD_T("")})
        expectNothing(openForEditing(name, {}));
}

TEST_F(EditedConfigurationTest, printerGetsANewConfigurationWithoutFile)
{
    const EditedConfiguration edited = createForEditing(OD_T("Plotter A"));
    ASSERT_TRUE(edited.cfg);
    EXPECT_EQ(edited.path, OD_T(""));
    EXPECT_EQ(edited.cfg->m_meta.m_win_device_name, OD_T("Plotter A"));
}

TEST_F(EditedConfigurationTest, settingsPassOnceThroughDriverWithoutPrompt)
{
    const EditedConfiguration edited = createForEditing(OD_T("Plotter A"));
    ASSERT_TRUE(edited.cfg);
    const std::vector<room::CallRecord> passed = merges();
    ASSERT_EQ(passed.size(), 1U);
    EXPECT_EQ(passed[0].detail, 10U);
    EXPECT_EQ(passed[0].owner, nullptr);
    EXPECT_EQ(OdString(passed[0].printer.c_str()), OD_T("Plotter A"));
    EXPECT_EQ(passed[0].devMode.size(), 228U);
}

TEST_F(EditedConfigurationTest, whatDriverMadeOfSettingsIsTakenOver)
{
    room::Printer printer;
    printer.name = OD_T("Corrector");
    printer.driver = OD_T("Acme Other");
    printer.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}};
    printer.merge = [](std::vector<BYTE>& block, const std::vector<BYTE>& input)
    {
        block = input;
        DEVMODEW fields;
        std::memcpy(&fields, block.data(), sizeof fields);
        fields.dmCopies = 7;
        std::memcpy(block.data(), &fields, sizeof fields);
    };
    m_room.add(printer);
    const EditedConfiguration edited = createForEditing(OD_T("Corrector"));
    ASSERT_TRUE(edited.cfg);
    EXPECT_EQ(edited.cfg->m_media.m_number_of_copies, 7);
}

TEST_F(EditedConfigurationTest, printerThatCannotBeOpenedGivesNothing)
{
    expectNothing(createForEditing(OD_T("Plotter Z")));
    expectNothing(createForEditing({}));
}

TEST_F(EditedConfigurationTest, printerRemovedAfterCreationGivesNothing)
{
    const auto opensOf = [this](const std::function<void()>& work)
    {
        m_room.forgetCalls();
        work();
        return m_room.count(room::Call::openPrinter);
    };
    const int creation = opensOf([] { GmPlotCfg3::create(OD_T("Plotter A")); });
    const int all = opensOf([] { createForEditing(OD_T("Plotter A")); });
    ASSERT_GT(all, creation);

    int opens = 0;
    int last = 0;
    m_room.onCall(room::Call::openPrinter, OD_T("Leaver"),
                  [this, &opens, &last](const room::CallRecord&)
                  {
                      if (++opens == last)
                          m_room.remove(OD_T("Leaver"));
                  });
    for (last = creation + 1; last <= all; ++last)
    {
        room::Printer printer;
        printer.name = OD_T("Leaver");
        printer.driver = OD_T("Acme Leaver");
        printer.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}};
        m_room.add(printer);
        opens = 0;
        expectNothing(createForEditing(OD_T("Leaver")));
        EXPECT_GE(opens, last) << "it never came so far";
        for (const room::CallRecord& merge : merges())
            EXPECT_FALSE(merge.printer.empty()) << "nobody was asked";
    }
}

TEST_F(EditedConfigurationTest, everyCallOfTheSpoolerMayFail)
{
    const int failures = failEachCall(
        m_room, [] { return createForEditing(OD_T("Plotter A")); },
        [](const EditedConfiguration& edited, bool failed)
        {
            if (!failed)
            {
                EXPECT_TRUE(edited.cfg);
            }
        });
    EXPECT_GT(failures, 5);
}

TEST_F(EditedConfigurationTest, anythingButOkOfTheDriverGivesNothing)
{
    for (const LONG answer : {0, 2, -1})
    {
        room::Printer printer;
        printer.name = OD_T("Refuser ") + room::Text(1, static_cast<WCHAR>('A' + answer + 1));
        printer.driver = OD_T("Acme Refuser");
        printer.papers = {{9, OD_T("A4")}};
        printer.lies.mergeAnswer = answer;
        m_room.add(printer);
        m_room.forgetCalls();
        expectNothing(createForEditing(printer.name.c_str()));
        EXPECT_EQ(merges().size(), 1U);
    }
}

TEST_F(EditedConfigurationTest, deviceModeThatNoLongerFitsGivesNothing)
{
    room::Printer printer;
    printer.name = OD_T("Changer");
    printer.driver = OD_T("Acme Changer");
    printer.papers = {{9, OD_T("A4")}};
    printer.merge = [](std::vector<BYTE>& block, const std::vector<BYTE>& input)
    {
        block = input;
        DEVMODEW fields;
        std::memcpy(&fields, block.data(), sizeof fields);
        fields.dmDriverExtra = 0;
        std::memcpy(block.data(), &fields, sizeof fields);
    };
    m_room.add(printer);
    expectNothing(createForEditing(OD_T("Changer")));
}

TEST_F(EditedConfigurationTest, whatADriverThrowsGivesNothing)
{
    m_room.onCall(room::Call::documentProperties, {},
                  [](const room::CallRecord& record)
                  {
                      if ((record.detail & DM_IN_BUFFER) != 0)
                          throw std::runtime_error("driver");
                  });
    expectNothing(createForEditing(OD_T("Plotter A")));
    EXPECT_EQ(merges().size(), 1U);
}
} // namespace
