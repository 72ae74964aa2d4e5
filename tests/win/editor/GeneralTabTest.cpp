#include "tests/support/RecordedAsserts.h"
#include "tests/support/operator/Pixels.h"
#include "tests/win/editor/EditorSheet.h"
#include "tests/win/editor/EditorTest.h"

#include "resources/Resource.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

namespace
{
class GeneralTabTest : public EditorTest
{
protected:
    using Script = std::function<void(SheetDriver& user, HWND sheet)>;

    // Shows the configuration; a script that does not close the sheet is done with it.
    INT_PTR show(const Script& script)
    {
        m_sheet.setConfig(m_cfg, L"C:\\plot\\a.pc3", L"");
        return m_sheet.show(script);
    }
    void look(const Script& script)
    {
        show(
            [&](SheetDriver& user, HWND sheet)
            {
                script(user, sheet);
                user.press(sheet, IDCANCEL);
            });
    }

    static std::vector<std::wstring> entries(SheetDriver& user, HWND list)
    {
        std::vector<std::wstring> found;
        const LRESULT count = user.send(list, CB_GETCOUNT);
        for (LRESULT i = 0; i < count; ++i)
        {
            wchar_t text[256] = {};
            user.send(list, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            found.emplace_back(text);
        }
        return found;
    }

    // As if the list were not disabled: selects an entry and notifies the tab.
    static void choose(SheetDriver& user, HWND sheet, int index)
    {
        const HWND list = user.control(sheet, IDC_PRINTERS);
        user.send(list, CB_SETCURSEL, static_cast<WPARAM>(index));
        user.send(::GetParent(list), WM_COMMAND, MAKEWPARAM(IDC_PRINTERS, CBN_SELCHANGE),
                  reinterpret_cast<LPARAM>(list));
    }

    static int selected(SheetDriver& user, HWND sheet)
    {
        return static_cast<int>(user.send(user.control(sheet, IDC_PRINTERS), CB_GETCURSEL));
    }

    static HWND tipsOf(SheetDriver& user, HWND sheet)
    {
        HWND tips = nullptr;
        while ((tips = ::FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr &&
               ::GetWindow(tips, GW_OWNER) != ::GetAncestor(user.page(sheet), GA_ROOT))
            ;
        return tips;
    }
    static std::wstring tipOf(SheetDriver& user, HWND sheet, int id)
    {
        wchar_t text[1000] = {};
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = user.page(sheet);
        tool.uFlags = TTF_IDISHWND;
        tool.uId = reinterpret_cast<UINT_PTR>(user.control(sheet, id));
        tool.lpszText = text;
        user.send(tipsOf(user, sheet), TTM_GETTEXTW, 1000, reinterpret_cast<LPARAM>(&tool));
        return text;
    }

    OdSharedPtr<GmPlotCfg3> m_cfg = newConfiguration();
    EditorSheet m_sheet;
};

// The registry key by which Wine is known, for as long as the object lives.
class WineKey
{
public:
    WineKey()
    {
        EXPECT_EQ(::RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Wine\\Wine\\Config", 0, nullptr,
                                    REG_OPTION_VOLATILE, KEY_READ, nullptr, &m_key, nullptr),
                  ERROR_SUCCESS);
    }
    ~WineKey()
    {
        ::RegCloseKey(m_key);
        ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Wine\\Wine\\Config");
        ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Wine\\Wine");
    }
    WineKey(const WineKey&) = delete;
    WineKey& operator=(const WineKey&) = delete;

private:
    HKEY m_key = nullptr;
};

TEST_F(GeneralTabTest, showsWhatTheConfigurationIs)
{
    m_cfg->m_meta.m_config_description = L"R&D\r\nsecond line";
    m_cfg->m_meta.m_driver_pathname = L"C:\\drivers\\r&d.hdi";
    m_cfg->m_meta.m_driver_version = L"4.2";
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION), L"R&D\r\nsecond line");
            EXPECT_EQ(user.textOf(sheet, IDC_FILE_NAME), L"a.pc3");
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER), libraryText(209));
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER_FILE), L"r&d.hdi");
            EXPECT_EQ(user.textOf(sheet, IDC_VERSION), libraryText(211) + L"4.2");
            EXPECT_EQ(user.textOf(sheet, IDC_PORT), libraryText(213) + L"LPT1:");
        });
}

TEST_F(GeneralTabTest, aConfigurationWithoutPrinterShowsFamilyAndModel)
{
    m_cfg->m_meta.m_win_device_name.empty();
    m_cfg->m_meta.m_localized_family_name = L"Files";
    m_cfg->m_meta.m_localized_model_name = L"Raster";
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER), libraryText(210, {L"Files", L"Raster"}));
            EXPECT_EQ(user.textOf(sheet, IDC_PORT), libraryText(213));
            EXPECT_EQ(selected(user, sheet), CB_ERR);
        });
}

TEST_F(GeneralTabTest, theIconTellsPrintersFromFiles)
{
    const std::vector<BYTE> printerPixels = pixels(loadIcon(IDI_SYSTEM_PRINTER, ::GetSystemMetrics(SM_CXICON)).get());
    const std::vector<BYTE> filePixels = pixels(loadIcon(IDI_FILE_PRINTER, ::GetSystemMetrics(SM_CXICON)).get());
    ASSERT_FALSE(printerPixels.empty());
    ASSERT_NE(printerPixels, filePixels);
    std::vector<BYTE> shown;
    const auto takeIcon = [&](SheetDriver& user, HWND sheet)
    { shown = pixels(reinterpret_cast<HICON>(user.send(user.control(sheet, IDC_DRIVER_ICON), STM_GETICON))); };
    look(takeIcon);
    EXPECT_EQ(shown, printerPixels);
    m_cfg->m_meta.m_win_device_name.empty();
    look(takeIcon);
    EXPECT_EQ(shown, filePixels);
}

TEST_F(GeneralTabTest, longTextsAreWholeInTheirTooltips)
{
    const std::wstring name(500, L'f');
    m_cfg->m_meta.m_driver_pathname = (L"C:\\" + name).c_str();
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(tipOf(user, sheet, IDC_DRIVER_FILE), name);
            const HWND tips = tipsOf(user, sheet);
            EXPECT_EQ(user.send(tips, TTM_GETTOOLCOUNT), 5);
            // Wider ones are broken into lines.
            EXPECT_EQ(user.send(tips, TTM_GETMAXTIPWIDTH), 400);
            // The page receives the notifications of its tooltips.
            for (WPARAM i = 0; i < 5; ++i)
            {
                wchar_t text[1000] = {};
                TOOLINFOW listed = {};
                listed.cbSize = TTTOOLINFOW_V2_SIZE;
                listed.lpszText = text;
                ASSERT_TRUE(user.send(tips, TTM_ENUMTOOLSW, i, reinterpret_cast<LPARAM>(&listed)));
                EXPECT_EQ(listed.hwnd, user.page(sheet));
            }
        });
}

TEST_F(GeneralTabTest, labelKeepsOneTooltipAfterATextChange)
{
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(tipOf(user, sheet, IDC_FILE_NAME), L"a.pc3");
            EditorSheet::onItsThread(user, sheet,
                                     [&]
                                     {
                                         m_sheet.general().setFileName(L"b.pc3");
                                         m_sheet.general().UpdateData(FALSE);
                                     });
            EXPECT_EQ(tipOf(user, sheet, IDC_FILE_NAME), L"b.pc3");
            EXPECT_EQ(user.send(tipsOf(user, sheet), TTM_GETTOOLCOUNT), 5);
        });
}

TEST_F(GeneralTabTest, printersKeepTheSpoolersOrderAndAreDisabled)
{
    m_room.allowNetworkPass();
    room::Printer other;
    other.name = L"A network printer";
    other.connection = true;
    m_room.add(other);
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND list = user.control(sheet, IDC_PRINTERS);
            EXPECT_EQ(entries(user, list),
                      (std::vector<std::wstring>{L"Plotter A", L"Plotter B", L"Plotter C", L"A network printer"}));
            EXPECT_EQ(selected(user, sheet), 0);
            EXPECT_FALSE(::IsWindowEnabled(list));
            EXPECT_FALSE(::GetWindowLongW(list, GWL_STYLE) & CBS_SORT);
        });
}

TEST_F(GeneralTabTest, wineNeedsLevel5ForNames)
{
    // Today's Wine does not have the key, so the tab takes it for something else.
    const auto levels = [this]
    {
        m_room.forgetCalls();
        look([](SheetDriver&, HWND) {});
        std::vector<DWORD> found;
        for (const room::CallRecord& call : m_room.calls())
            if (call.call == room::Call::enumPrinters)
                found.push_back(call.level);
        return found;
    };
    const std::vector<DWORD> elsewhere = levels();
    EXPECT_FALSE(elsewhere.empty());
    EXPECT_TRUE(std::ranges::all_of(elsewhere, [](DWORD level) { return level == 1; }));
    const WineKey key;
    const std::vector<DWORD> underWine = levels();
    EXPECT_FALSE(underWine.empty());
    EXPECT_TRUE(std::ranges::all_of(underWine, [](DWORD level) { return level == 5; }));
}

TEST_F(GeneralTabTest, anAbsentPrinterHasAPlaceholderInFront)
{
    m_cfg->m_meta.m_win_device_name = L"Gone";
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            const std::vector<std::wstring> list = entries(user, user.control(sheet, IDC_PRINTERS));
            ASSERT_EQ(list.size(), 4U);
            EXPECT_EQ(list[0], libraryText(103, {L"Gone"}));
            EXPECT_EQ(list[1], L"Plotter A");
            EXPECT_EQ(selected(user, sheet), 0);
        });
}

TEST_F(GeneralTabTest, choosingTheSamePrinterDoesNothing)
{
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            m_room.forgetCalls();
            choose(user, sheet, 0);
            EXPECT_TRUE(m_room.calls().empty());
        });
    EXPECT_FALSE(m_sheet.m_replaced);
}

TEST_F(GeneralTabTest, choosingPrinterOnSameDriverTakesItsName)
{
    m_cfg->m_meta.m_config_description = L"mine";
    look([&](SheetDriver& user, HWND sheet) { choose(user, sheet, 1); });
    EXPECT_TRUE(m_sheet.m_replaced);
    EXPECT_EQ(m_sheet.sharedCfg(), m_cfg);
    EXPECT_EQ(m_cfg->m_meta.m_win_device_name, L"Plotter B");
    EXPECT_EQ(m_cfg->m_meta.m_config_description, L"mine");
}

TEST_F(GeneralTabTest, choosingPrinterOnAnotherDriverExchangesConfiguration)
{
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            choose(user, sheet, 2);
            EXPECT_EQ(selected(user, sheet), 2);
            m_room.forgetCalls();
            choose(user, sheet, 2);
            EXPECT_TRUE(m_room.calls().empty()) << "the new selection was not stored";
        });
    EXPECT_TRUE(m_sheet.m_replaced);
    EXPECT_NE(m_sheet.sharedCfg(), m_cfg);
    EXPECT_EQ(m_sheet.sharedCfg().refCount(), 1);
    EXPECT_EQ(m_sheet.cfg().m_meta.m_win_device_name, L"Plotter C");
}

TEST_F(GeneralTabTest, aPrinterWithoutConfigurationIsNotChosen)
{
    const RecordedAsserts asserts;
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            m_room.refuse(room::Call::openPrinter, L"Plotter B");
            choose(user, sheet, 1);
            EXPECT_EQ(selected(user, sheet), 0);
        });
    EXPECT_EQ(RecordedAsserts::reports(), std::vector<std::string>{"0 | GarmPC3Editor/Dialogs/GmTabGeneral"});
    EXPECT_FALSE(m_sheet.m_replaced);
    EXPECT_EQ(m_cfg->m_meta.m_win_device_name, L"Plotter A");
}

TEST_F(GeneralTabTest, thePlaceholderGoesWithTheFirstChoice)
{
    m_cfg->m_meta.m_win_device_name = L"Gone";
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            choose(user, sheet, 0);
            EXPECT_EQ(entries(user, user.control(sheet, IDC_PRINTERS)).size(), 4U)
                << "the placeholder itself is stored";
            choose(user, sheet, 3);
            EXPECT_EQ(entries(user, user.control(sheet, IDC_PRINTERS)),
                      (std::vector<std::wstring>{L"Plotter A", L"Plotter B", L"Plotter C"}));
            // The entry that was chosen, where it is now.
            EXPECT_EQ(selected(user, sheet), 2);
            choose(user, sheet, 0);
            EXPECT_EQ(entries(user, user.control(sheet, IDC_PRINTERS)).size(), 3U);
        });
    EXPECT_EQ(m_sheet.cfg().m_meta.m_win_device_name, L"Plotter A");
}

TEST_F(GeneralTabTest, withoutPlaceholderAndConfigurationNothingIsSelected)
{
    m_cfg->m_meta.m_win_device_name = L"Gone";
    const RecordedAsserts asserts;
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            m_room.refuse(room::Call::openPrinter, L"Plotter A");
            choose(user, sheet, 1);
            EXPECT_EQ(selected(user, sheet), CB_ERR);
            EXPECT_EQ(entries(user, user.control(sheet, IDC_PRINTERS)).size(), 3U);
        });
    EXPECT_EQ(RecordedAsserts::reports().size(), 1U);
    EXPECT_FALSE(m_sheet.m_replaced);
}

TEST_F(GeneralTabTest, aDescriptionThatIsEqualIsNoChange)
{
    m_cfg->m_meta.m_config_description = L"same";
    show(
        [](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"other");
            user.enter(sheet, IDC_DESCRIPTION, L"same");
            user.press(sheet, IDOK);
        });
    EXPECT_FALSE(m_sheet.m_modified);
    show(
        [](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"Same");
            user.press(sheet, IDOK);
        });
    EXPECT_TRUE(m_sheet.m_modified) << "letters in another case are another text";
    EXPECT_EQ(m_cfg->m_meta.m_config_description, L"Same");
}

TEST_F(GeneralTabTest, isModifiedFromTheFirstKeyOn)
{
    EXPECT_FALSE(m_sheet.general().isModified());
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            const auto isModified = [&]
            {
                bool modified = false;
                EditorSheet::onItsThread(user, sheet, [&] { modified = m_sheet.general().isModified(); });
                return modified;
            };
            EXPECT_FALSE(isModified());
            user.enter(sheet, IDC_DESCRIPTION, L"typed");
            EXPECT_TRUE(isModified());
            // Only 1 counts as modified.
            user.send(user.control(sheet, IDC_DESCRIPTION), EM_SETMODIFY, FALSE);
            EXPECT_FALSE(isModified());
        });
    EXPECT_FALSE(m_sheet.general().isModified());
}

TEST_F(GeneralTabTest, openingDoesNotSelectTheDescription)
{
    m_cfg->m_meta.m_config_description = L"a text that one key would replace";
    look(
        [](SheetDriver& user, HWND sheet)
        {
            const HWND edit = user.control(sheet, IDC_DESCRIPTION);
            user.focusOn(edit);
            DWORD start = 0;
            DWORD end = 0;
            user.send(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
            EXPECT_EQ(start, end);
        });
}

TEST_F(GeneralTabTest, returnMakesLineAndEscapeCancelsSheet)
{
    const INT_PTR result = show(
        [](SheetDriver& user, HWND sheet)
        {
            const HWND edit = user.control(sheet, IDC_DESCRIPTION);
            user.enter(sheet, IDC_DESCRIPTION, L"first");
            user.post(edit, WM_CHAR, VK_RETURN);
            user.settle();
            EXPECT_EQ(user.text(edit), L"first\r\n");
            user.focusOn(edit);
            user.key(VK_ESCAPE);
        });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(m_cfg->m_meta.m_config_description, L"");
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(GeneralTabTest, escapeIsHandledWhereverOnTabItArrives)
{
    for (const int id : {IDC_FILE_NAME, IDC_PRINTERS, 0})
    {
        const INT_PTR result = show(
            [id](SheetDriver& user, HWND sheet)
            {
                const HWND target = id ? user.control(sheet, id) : user.page(sheet);
                user.post(target, WM_KEYDOWN, VK_ESCAPE, 1);
            });
        EXPECT_EQ(result, IDCANCEL) << id;
    }
}

TEST_F(GeneralTabTest, oddDescriptionsStayUnchanged)
{
    for (const wchar_t* text : {L"a\nb", L"\r", L"a\r\r\nb", L"\x1\x2\x7F\t", L"\xD800 \xFFFF", L"  \r\n  ", L"&x"})
    {
        m_cfg->m_meta.m_config_description = text;
        const INT_PTR result = show(
            [&](SheetDriver& user, HWND sheet)
            {
                EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION), text);
                user.press(sheet, IDOK);
            });
        EXPECT_EQ(result, IDOK);
        EXPECT_FALSE(m_sheet.m_modified);
        EXPECT_EQ(m_cfg->m_meta.m_config_description, text);
    }
}

TEST_F(GeneralTabTest, aLongDescriptionCanBeTypedOn)
{
    std::wstring text;
    for (int i = 0; i < 70; ++i)
        text += std::wstring(998, L'x') + L"\r\n";
    m_cfg->m_meta.m_config_description = text.c_str();
    look(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND edit = user.control(sheet, IDC_DESCRIPTION);
            user.focusOn(edit);
            user.send(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
            user.post(edit, WM_CHAR, L'y');
            user.settle();
            EXPECT_EQ(user.text(edit), text + L'y');
        });
}

TEST_F(GeneralTabTest, aDescriptionOfAnyLengthComesAndGoes)
{
    std::wstring text;
    for (int i = 0; i < 3000; ++i)
        text += L"line " + std::to_wstring(i) + L"\r\n";
    m_cfg->m_meta.m_config_description = text.c_str();
    show(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION), text);
            user.press(sheet, IDOK);
        });
    EXPECT_FALSE(m_sheet.m_modified);
    EXPECT_EQ(m_cfg->m_meta.m_config_description, text.c_str());
}
} // namespace
