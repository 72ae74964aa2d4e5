// The Defaults button, and the marks and stale pages it leaves.

#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/DeviceTabTest.h"

#include "resources/Resource.h"

namespace
{
using Types = std::vector<GmDeviceEntry>;

// The driver's defaults: A4 on "Plotter A", colour, not collated.
class DeviceDefaults : public DeviceTabTest
{
protected:
    // Presses the button and answers the question.
    static BoxTexts reset(const DeviceTabUser& tab, int answer)
    {
        tab.user.press(tab.tab, IDC_DEFAULTS);
        const BoxTexts texts = tab.user.answerNext(answer);
        tab.user.settle();
        return texts;
    }
    GmDestinationNode& destination() { return *m_cfg->m_media.m_destination; }
};
} // namespace

TEST_F(DeviceDefaults, askFirst)
{
    run(
        [this](DeviceTabUser& tab)
        {
            const BoxTexts question = reset(tab, IDNO);
            EXPECT_EQ(question.text, libraryText(IDS_RESET_QUESTION));
            EXPECT_EQ(question.caption, tab.user.text(tab.sheet));
            EXPECT_EQ(question.buttons, (std::vector<int>{IDYES, IDNO}));
            EXPECT_EQ(question.icon, ::LoadIconW(nullptr, IDI_EXCLAMATION));
            EXPECT_EQ(question.owner, tab.sheet);
        });
}

TEST_F(DeviceDefaults, declinedChangeNothing)
{
    destination().setCollating(true);
    run(
        [](DeviceTabUser& tab)
        {
            reset(tab, IDNO);
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_EQ(destination().m_collating_type, 1);
}

TEST_F(DeviceDefaults, markChangedLabelsAndSaveNothing)
{
    destination().setCollating(true);
    m_cfg->m_media.m_size.m_name = OD_T("A3");
    EXPECT_EQ(run(
                  [this](DeviceTabUser& tab)
                  {
                      reset(tab, IDYES);
                      EXPECT_EQ(destination().m_collating_type, 0);
                      EXPECT_EQ(tab.label(eSourceSize), libraryText(IDS_SOURCE_SIZE) + L" <Size: A4>");
                      EXPECT_EQ(tab.markedEntries(), (Types{eSourceSize, eCollating}));
                  }),
              IDOK);
    // On purpose: the reset alone is no reason to write the file.
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DeviceDefaults, thatChangeNothingRefreshNothing)
{
    int texts = 0;
    const SentMessages watch = countingTreeTexts(texts);
    run(
        [&texts](DeviceTabUser& tab)
        {
            texts = 0;
            reset(tab, IDYES);
            EXPECT_EQ(texts, 0);
        });
}

TEST_F(DeviceDefaults, ofAPrinterThatIsGoneChangeNothing)
{
    destination().setCollating(true);
    run(
        [this](DeviceTabUser& tab)
        {
            m_room.remove(L"Plotter A");
            reset(tab, IDYES);
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_EQ(destination().m_collating_type, 1);
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DeviceDefaults, areRefreshedParentsFirstWithTextBeforeMark)
{
    destination().setCollating(true);
    m_cfg->m_media.m_size.m_name = OD_T("A3");
    std::vector<std::pair<HTREEITEM, UINT>> changes;
    const SentMessages watch(
        [&changes](HWND, UINT message, WPARAM, LPARAM lParam)
        {
            if (message != TVM_SETITEMW)
                return;
            const auto& item = *reinterpret_cast<const TVITEMW*>(lParam);
            changes.emplace_back(item.hItem, item.mask & (TVIF_TEXT | TVIF_STATE));
        });
    run(
        [&changes](DeviceTabUser& tab)
        {
            changes.clear();
            reset(tab, IDYES);
            std::vector<std::pair<int, UINT>> byType;
            for (const auto& [item, what] : changes)
                byType.emplace_back(tab.typeOf(item), what);
            const std::vector<std::pair<int, UINT>> expected = {
                {eRoot, TVIF_TEXT},           {eMedia, TVIF_TEXT},     {eSourceSize, TVIF_TEXT},
                {eSourceSize, TVIF_STATE},    {eMediaDest, TVIF_TEXT}, {eCollating, TVIF_TEXT},
                {eCollating, TVIF_STATE},     {eGraphics, TVIF_TEXT},  {eVectorGraphics, TVIF_TEXT},
                {eRasterGraphics, TVIF_TEXT}, {eTrueType, TVIF_TEXT},  {eMergeCtrl, TVIF_TEXT},
                {eCustomProp, TVIF_TEXT},
            };
            EXPECT_EQ(byType, expected);
        });
}

TEST_F(DeviceDefaults, anEmptyLabelLeavesTheOldOneUnmarked)
{
    destination().setCollating(true);
    m_sheet.setConfig(m_cfg, L"", L"");
    run(
        [this](DeviceTabUser& tab)
        {
            // Without a file and a printer's name there is nothing to call the configuration.
            m_room.onCall(room::Call::getDeviceCaps, L"Plotter A",
                          [this](const room::CallRecord&) { m_cfg->m_meta.m_win_device_name = OD_T(""); });
            reset(tab, IDYES);
            m_room.forgetHooks();
            EXPECT_TRUE(m_cfg->m_meta.m_win_device_name.isEmpty());
            EXPECT_EQ(tab.label(eRoot), L"Plotter A");
            EXPECT_EQ(tab.markedEntries(), Types{eCollating});
        });
}

TEST_F(DeviceDefaults, existingPageWritesItsOldChoiceBack)
{
    destination().setCollating(true);
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            reset(tab, IDYES);
            EXPECT_EQ(destination().m_collating_type, 0);
            EXPECT_EQ(tab.selectionOf(IDC_COLLATING), 1);
            EXPECT_FALSE(m_sheet.m_modified);
            // The page is stale, and leaving it commits what it shows.
            tab.select(eRoot);
            EXPECT_EQ(destination().m_collating_type, 1);
            EXPECT_TRUE(m_sheet.m_modified);
            EXPECT_TRUE(tab.isMarked(eCollating));
        });
}

TEST_F(DeviceDefaults, pageWithoutChangesKeepsThem)
{
    m_cfg->m_res_color_mem.m_preference = 20;
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            m_cfg->m_res_color_mem.m_preference = 30;
            tab.select(eRoot);
            EXPECT_EQ(m_cfg->m_res_color_mem.m_preference, 30);
        });
    EXPECT_FALSE(m_sheet.m_modified);
}
