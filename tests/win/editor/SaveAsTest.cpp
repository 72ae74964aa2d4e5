#include "tests/win/editor/EditorSheet.h"
#include "tests/win/editor/EditorTest.h"
#include "tests/win/module/ImportPatch.h"

#include "resources/Resource.h"

#include <commdlg.h>
#include <objbase.h>

#include <thread>
#include <vector>

namespace
{
constexpr int typeList = 1136; // of the system's Save dialogs

class SaveAsTest : public EditorTest
{
protected:
    SaveAsTest() { m_cfg->m_meta.m_config_description = L"saved"; }

    // Opens the dialog from the second tab, as a person does, and gives its window.
    static HWND openSaveAs(SheetDriver& user, HWND sheet)
    {
        user.selectTab(sheet, 1);
        user.press(sheet, IDC_SAVE_AS);
        return user.awaitWindow();
    }

    static void saveAs(SheetDriver& user, HWND sheet, const OdString& path)
    {
        const HWND dialog = openSaveAs(user, sheet);
        user.send(fileNameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        user.press(dialog, IDOK);
        user.awaitClosed(dialog);
    }

    std::wstring caption(const wchar_t* title) const { return libraryText(IDS_SHEET_TITLE, {OdString(title)}); }

    OdSharedPtr<GmPlotCfg3> m_cfg = newConfiguration();
    EditorSheet m_sheet;
};

TEST_F(SaveAsTest, writesTheFileAndTakesItsName)
{
    m_sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
    m_sheet.m_modified = true;
    const OdString path = m_folder.at("new.pc3");
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            saveAs(user, sheet, path);
            user.settle();
            EXPECT_EQ(user.text(sheet), caption(L"new.pc3"));
            EXPECT_EQ(user.textOf(sheet, IDC_FILE_NAME), L"new.pc3");
            user.press(sheet, IDCANCEL);
        });
    EXPECT_TRUE(m_sheet.m_saved);
    EXPECT_TRUE(m_sheet.m_modified) << "what was saved is saved again under the name that is confirmed";
    EXPECT_FALSE(m_sheet.m_replaced);
    EXPECT_EQ(m_sheet.m_path, path.c_str());
    const OdSharedPtr<GmPlotCfg3> written = read("new.pc3");
    ASSERT_TRUE(written);
    EXPECT_EQ(written->m_meta.m_config_description, L"saved");
    EXPECT_EQ(m_folder.names(), std::set<std::string>{"new.pc3"});
}

TEST_F(SaveAsTest, theExtensionIsAddedByTheDialog)
{
    m_sheet.setConfig(m_cfg, L"", m_folder.path());
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            saveAs(user, sheet, m_folder.at("plain"));
            user.settle();
            user.press(sheet, IDCANCEL);
        });
    EXPECT_EQ(m_folder.names(), std::set<std::string>{"plain.pc3"});
}

TEST_F(SaveAsTest, newConfigurationStartsInInitialFolderWithoutName)
{
    m_sheet.setConfig(m_cfg, L"", m_folder.path());
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND dialog = openSaveAs(user, sheet);
            EXPECT_EQ(user.text(fileNameField(dialog)), L"");
            user.send(fileNameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"bare.pc3"));
            user.press(dialog, IDOK);
            user.awaitClosed(dialog);
            user.settle();
            user.press(sheet, IDCANCEL);
        });
    EXPECT_EQ(m_sheet.m_path, m_folder.at("bare.pc3").c_str());
    EXPECT_EQ(m_folder.names(), std::set<std::string>{"bare.pc3"});
}

TEST_F(SaveAsTest, offersPlotterConfigurationsAndAllFiles)
{
    m_sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND dialog = openSaveAs(user, sheet);
            const HWND types = user.control(dialog, typeList);
            EXPECT_EQ(user.send(types, CB_GETCURSEL), 0);
            std::vector<std::wstring> names;
            for (LRESULT i = 0; i < user.send(types, CB_GETCOUNT); ++i)
            {
                wchar_t text[256] = {};
                user.send(types, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
                names.emplace_back(text);
            }
            EXPECT_EQ(names, (std::vector<std::wstring>{L"Plotter configurations (*.pc3)", L"All files (*.*)"}));
            user.press(dialog, IDCANCEL);
            user.awaitClosed(dialog);
            user.settle();
            user.press(sheet, IDCANCEL);
        });
}

// What the older dialog is asked, in place of the dialog. A thread gets that one when the newer one cannot work in its
// apartment; only there the flag against a box for opening read-only has a meaning.
OPENFILENAMEW& asked()
{
    static OPENFILENAMEW instance = {};
    return instance;
}

BOOL WINAPI noteAndCancel(OPENFILENAMEW* parameters)
{
    asked() = *parameters;
    EXPECT_STREQ(parameters->lpstrFilter, L"Plotter configurations (*.pc3)");
    EXPECT_STREQ(parameters->lpstrDefExt, L"pc3");
    return FALSE;
}

TEST_F(SaveAsTest, asksBeforeReplacingWithoutReadOnlyBox)
{
    const ImportPatch patch(::GetModuleHandleW(nullptr), "GetSaveFileNameW",
                            reinterpret_cast<const void*>(&noteAndCancel));
    asked() = {};
    std::thread(
        [&]
        {
            ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
            {
                EditorSheet sheet;
                sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
                sheet.show(
                    [](SheetDriver& user, HWND window)
                    {
                        user.selectTab(window, 1);
                        user.click(window, IDC_SAVE_AS);
                        EXPECT_EQ(asked().hwndOwner, window);
                        user.press(window, IDCANCEL);
                    });
            }
            ::CoUninitialize();
        })
        .join();
    EXPECT_EQ(asked().Flags, static_cast<DWORD>(OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_EXPLORER));
}

TEST_F(SaveAsTest, cancellingChangesNothing)
{
    m_sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND dialog = openSaveAs(user, sheet);
            EXPECT_EQ(user.text(fileNameField(dialog)), L"old.pc3");
            EXPECT_FALSE(::IsWindowEnabled(sheet)) << "the sheet is not its owner";
            user.press(dialog, IDCANCEL);
            user.awaitClosed(dialog);
            user.settle();
            EXPECT_EQ(user.text(sheet), caption(L"old.pc3"));
            user.press(sheet, IDCANCEL);
        });
    EXPECT_FALSE(m_sheet.m_saved);
    EXPECT_EQ(m_sheet.m_path, m_folder.at("old.pc3").c_str());
    EXPECT_TRUE(m_folder.names().empty());
}

TEST_F(SaveAsTest, failureIsToldAndLeavesTitleAndPath)
{
    m_sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
    const OdString target = m_folder.addFile("locked.pc3", "not ours");
    ::SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND dialog = openSaveAs(user, sheet);
            user.send(fileNameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(target.c_str()));
            user.press(dialog, IDOK);
            // Whether to replace the file; the dialog is the one that asks.
            const HWND question = user.awaitWindow();
            user.answer(question, IDYES);
            user.awaitClosed(dialog);

            const HWND box = user.awaitWindow();
            const BoxTexts told = user.read(box);
            EXPECT_EQ(told.text, libraryText(IDS_SAVE_FAILED));
            EXPECT_EQ(told.caption, caption(L"old.pc3"));
            EXPECT_EQ(told.buttons, std::vector<int>{IDOK});
            EXPECT_EQ(told.icon, ::LoadIconW(nullptr, IDI_EXCLAMATION));
            EXPECT_EQ(told.owner, sheet);
            user.answer(box, IDOK);
            user.settle();
            EXPECT_EQ(user.text(sheet), caption(L"old.pc3"));
            EXPECT_EQ(user.textOf(sheet, IDC_FILE_NAME), L"old.pc3");
            user.press(sheet, IDCANCEL);
        });
    EXPECT_FALSE(m_sheet.m_saved);
    EXPECT_EQ(m_sheet.m_path, m_folder.at("old.pc3").c_str());
    ::SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(m_folder.bytesOf("locked.pc3"), "not ours");
}

TEST_F(SaveAsTest, noLabelOfTheTreeIsWrittenAnew)
{
    m_sheet.setConfig(m_cfg, m_folder.at("old.pc3"), L"");
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            saveAs(user, sheet, m_folder.at("new.pc3"));
            user.settle();
            const HWND tree = user.control(sheet, IDC_TREE);
            wchar_t text[128] = {};
            TVITEMW item = {};
            item.mask = TVIF_TEXT;
            item.hItem = reinterpret_cast<HTREEITEM>(user.send(tree, TVM_GETNEXTITEM, TVGN_ROOT));
            item.pszText = text;
            item.cchTextMax = 128;
            user.send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
            EXPECT_EQ(std::wstring(text), L"old.pc3");
            user.press(sheet, IDCANCEL);
        });
}
} // namespace
