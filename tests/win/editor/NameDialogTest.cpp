#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Dialogs/GmChangeCfgDlg.h"
#include "resources/Resource.h"
#include "tests/win/editor/EditorTest.h"

namespace
{
class NameDialogTest : public EditorTest
{
protected:
    static INT_PTR show(GmChangeCfgDlg& dialog, const SheetDriver::Script& script)
    {
        INT_PTR result = 0;
        SheetDriver::run([&] { result = dialog.DoModal(); }, script);
        return result;
    }
};

TEST_F(NameDialogTest, showsTheNameWithoutFolderAndExtension)
{
    GmChangeCfgDlg dialog(L"C:\\plot\\HP.5.PC3");
    EXPECT_EQ(dialog.m_path, L"C:\\plot\\HP.5.PC3");
    EXPECT_FALSE(dialog.m_extensionAdded);
    const INT_PTR result = show(dialog,
                                [](SheetDriver& user)
                                {
                                    const HWND window = user.awaitWindow();
                                    EXPECT_EQ(user.textOf(window, IDC_CFG_NAME), L"HP.5");
                                    EXPECT_EQ(user.textOf(window, IDC_EXTENSION_NOTE), L"");
                                    user.press(window, IDCANCEL);
                                });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog.m_path, L"C:\\plot\\HP.5.PC3");
}

TEST_F(NameDialogTest, saysThatTheExtensionIsAdded)
{
    GmChangeCfgDlg dialog(L"C:\\plot\\Plotter 5.5");
    EXPECT_TRUE(dialog.m_extensionAdded);
    EXPECT_EQ(dialog.m_path, L"C:\\plot\\Plotter 5.5.pc3");
    show(dialog,
         [this](SheetDriver& user)
         {
             const HWND window = user.awaitWindow();
             EXPECT_EQ(user.textOf(window, IDC_CFG_NAME), L"Plotter 5.5");
             EXPECT_EQ(user.textOf(window, IDC_EXTENSION_NOTE), libraryText(204));
             EXPECT_FALSE(libraryText(204).empty());
             user.press(window, IDCANCEL);
         });
}

TEST_F(NameDialogTest, okReturnsTheTrimmedName)
{
    GmChangeCfgDlg dialog(L"C:\\plot\\a.pc3");
    const INT_PTR result = show(dialog,
                                [](SheetDriver& user)
                                {
                                    const HWND window = user.awaitWindow();
                                    user.enter(window, IDC_CFG_NAME, L" \t my plotter.pc3  ");
                                    user.press(window, IDOK);
                                });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(dialog.m_path, L"my plotter.pc3");
    EXPECT_EQ(dialog.m_name, L" \t my plotter.pc3  ");
}

TEST_F(NameDialogTest, blanksKeepItOpenWithoutAMessage)
{
    GmChangeCfgDlg dialog(L"a");
    show(dialog,
         [](SheetDriver& user)
         {
             const HWND window = user.awaitWindow();
             for (const wchar_t* blank : {L"", L"   ", L"\t \x3000"})
             {
                 user.enter(window, IDC_CFG_NAME, blank);
                 user.click(window, IDOK);
                 user.settle();
                 EXPECT_TRUE(isUsable(user.control(window, IDC_CFG_NAME))) << "something is in front of it";
             }
             user.press(window, IDCANCEL);
         });
    EXPECT_EQ(dialog.m_path, L"a.pc3");
}

TEST_F(NameDialogTest, escapeAndReturnAreCancelAndOk)
{
    for (const auto& [key, expected] : {std::pair{VK_ESCAPE, IDCANCEL}, std::pair{VK_RETURN, IDOK}})
    {
        GmChangeCfgDlg dialog(L"a");
        const INT_PTR result = show(dialog,
                                    [key](SheetDriver& user)
                                    {
                                        const HWND window = user.awaitWindow();
                                        user.focusOn(user.control(window, IDC_CFG_NAME));
                                        user.key(static_cast<WORD>(key));
                                    });
        EXPECT_EQ(result, expected);
    }
}

TEST_F(NameDialogTest, aSentCancelEndsItToo)
{
    GmChangeCfgDlg dialog(L"a");
    const INT_PTR result =
        show(dialog, [](SheetDriver& user) { user.send(user.awaitWindow(), WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(result, IDCANCEL);
}

TEST_F(NameDialogTest, theCommandGetsTheTrimmedNameOrNone)
{
    std::optional<OdString> name;
    SheetDriver::run([&] { name = askForName(L"C:\\plot\\a.pc3"); },
                     [](SheetDriver& user)
                     {
                         const HWND window = user.awaitWindow();
                         user.enter(window, IDC_CFG_NAME, L" b ");
                         user.press(window, IDOK);
                     });
    EXPECT_EQ(name, OdString(L"b"));

    SheetDriver::run([&] { name = askForName(L"C:\\plot\\a.pc3"); },
                     [](SheetDriver& user) { user.press(user.awaitWindow(), IDCANCEL); });
    EXPECT_EQ(name, std::nullopt);
}

TEST_F(NameDialogTest, aHelpButtonGetsItsPicture)
{
    const LibraryHandle fixture(::LoadLibraryW(L"editor_help_fixture.dll"));
    ASSERT_TRUE(fixture);
    AfxSetResourceHandle(fixture.get());
    GmChangeCfgDlg dialog(L"a.pc3");
    show(dialog,
         [](SheetDriver& user)
         {
             const HWND window = user.awaitWindow();
             EXPECT_NE(user.send(user.control(window, IDHELP), BM_GETIMAGE, IMAGE_ICON), 0);
             user.press(window, IDCANCEL);
         });
    AfxSetResourceHandle(library());
}

TEST_F(NameDialogTest, aVeryLongNameIsShownAndKept)
{
    const std::wstring name(3000, L'n');
    GmChangeCfgDlg dialog(OdString((L"C:\\plot\\" + name).c_str()));
    show(dialog,
         [&name](SheetDriver& user)
         {
             const HWND window = user.awaitWindow();
             EXPECT_EQ(user.textOf(window, IDC_CFG_NAME), name);
             user.press(window, IDOK);
         });
    EXPECT_EQ(dialog.m_path, name.c_str());
}
} // namespace
