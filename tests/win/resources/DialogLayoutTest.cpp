// Every template in every language, at the scale the desktop has: nothing is clipped, nothing overlaps, everything
// keeps its distance. The runner starts this program once per scale.
#include "tests/win/resources/OpenedDialog.h"

#include "resources/Resource.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string>
#include <tuple>

namespace
{
constexpr UINT tabs[] = {IDD_GENERAL, IDD_DEVICE};
constexpr UINT pages[] = {IDD_VECTOR_GRAPHICS, IDD_CUSTOM_PROP, IDD_RASTER_GRAPHICS,
                          IDD_COLLATING,       IDD_TRUETYPE,    IDD_MERGE_CTRL};
constexpr UINT ownDialogs[] = {IDD_CHANGE_CFG, IDD_VIRTUAL_PRINTER};
constexpr UINT allDialogs[] = {IDD_GENERAL,    IDD_DEVICE,          IDD_VECTOR_GRAPHICS, IDD_CUSTOM_PROP,
                               IDD_COLLATING,  IDD_RASTER_GRAPHICS, IDD_TRUETYPE,        IDD_MERGE_CTRL,
                               IDD_CHANGE_CFG, IDD_VIRTUAL_PRINTER};

// Real scales, not stretched pictures of 96 dpi.
const BOOL scaleAware = ::SetProcessDPIAware();

enum class Kind
{
    text,
    picture,
    groupBox,
    radio,
    button,
    other
};

Kind kindOf(HWND control)
{
    const std::wstring name = classOf(control);
    const LONG style = styleOf(control);
    if (name == L"Static")
        return (style & SS_TYPEMASK) <= SS_RIGHT ? Kind::text : Kind::picture;
    if (name != L"Button")
        return Kind::other;
    switch (style & BS_TYPEMASK)
    {
    case BS_GROUPBOX:
        return Kind::groupBox;
    case BS_AUTORADIOBUTTON:
        return Kind::radio;
    default:
        return Kind::button;
    }
}

// What of the control's width is not for its text: the circle of a radio button, the corner that a group box leaves
// free on both sides, the border and inner space of a push button.
int widthBesideText(Kind kind, const OpenedDialog& dialog)
{
    const int character = dialog.pixels(4, 8).cx;
    switch (kind)
    {
    case Kind::radio:
        return ::GetSystemMetrics(SM_CXMENUCHECK) + character;
    case Kind::groupBox:
        return 3 * character;
    case Kind::button:
        return 2 * character;
    default:
        return 0;
    }
}

std::string nameOf(HWND control)
{
    const std::wstring text = textOf(control);
    std::string name = "control " + std::to_string(::GetDlgCtrlID(control)) + " \"";
    for (const wchar_t c : text)
        name += c < 128 ? static_cast<char>(c) : '?';
    return name + "\"";
}

void expectTextFits(const OpenedDialog& dialog, HWND control, const std::wstring& text)
{
    const Kind kind = kindOf(control);
    const SIZE room = clientSize(control);
    const bool wraps = kind == Kind::text;
    const UINT format = (wraps ? DT_WORDBREAK : DT_SINGLELINE) | (styleOf(control) & SS_NOPREFIX ? DT_NOPREFIX : 0U);
    const SIZE size = textSize(control, text, format, wraps ? room.cx : 0);
    EXPECT_LE(size.cx + widthBesideText(kind, dialog), room.cx) << nameOf(control) << " is too narrow";
    EXPECT_LE(size.cy, room.cy) << nameOf(control) << " is too low";
}

bool overlap(const RECT& a, const RECT& b)
{
    RECT common = {};
    return ::IntersectRect(&common, &a, &b) != FALSE;
}

bool contains(const RECT& outer, const RECT& inner)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

std::string parameterName(const std::wstring& tag, UINT id)
{
    return std::string(tag.begin(), tag.end()) + "_" + std::to_string(id);
}

class DialogLayout : public ::testing::TestWithParam<std::tuple<const wchar_t*, UINT>>
{
protected:
    DialogLayout() : m_library(loadLanguage(std::get<0>(GetParam()))), m_dialog(m_library.get(), id()) {}

    void SetUp() override
    {
        ASSERT_TRUE(m_library);
        ASSERT_NE(m_dialog.window(), nullptr) << "error " << ::GetLastError();
        ASSERT_FALSE(m_dialog.controls().empty());
    }

    UINT id() const { return std::get<1>(GetParam()); }
    bool isAmong(std::span<const UINT> ids) const { return std::ranges::find(ids, id()) != ids.end(); }

    LibraryHandle m_library;
    OpenedDialog m_dialog;
};

INSTANTIATE_TEST_SUITE_P(All, DialogLayout,
                         ::testing::Combine(::testing::ValuesIn(languageTags), ::testing::ValuesIn(allDialogs)),
                         [](const auto& param)
                         { return parameterName(std::get<0>(param.param), std::get<1>(param.param)); });

// Else a scale that the desktop does not have would count as measured.
TEST(DesktopScale, isTheOneAskedFor)
{
    const char* const asked = std::getenv("GARM_TEST_DPI");
    const HDC screen = ::GetDC(nullptr);
    EXPECT_EQ(std::to_string(::GetDeviceCaps(screen, LOGPIXELSX)), asked ? asked : "96");
    ::ReleaseDC(nullptr, screen);
}

TEST_P(DialogLayout, noTextIsClipped)
{
    for (const HWND control : m_dialog.controls())
        if (kindOf(control) != Kind::picture && kindOf(control) != Kind::other && !textOf(control).empty())
            expectTextFits(m_dialog, control, textOf(control));
}

// A list that is dropped down counts with its closed height.
TEST_P(DialogLayout, controlsLieInsideTheDialogAndApart)
{
    const SIZE size = clientSize(m_dialog.window());
    const RECT whole = {0, 0, size.cx, size.cy};
    const std::vector<HWND> controls = m_dialog.controls();
    for (const HWND control : controls)
    {
        const RECT place = placeOf(control);
        EXPECT_TRUE(contains(whole, place)) << nameOf(control) << " sticks out";
        for (const HWND other : controls)
        {
            if (other == control || !overlap(place, placeOf(other)))
                continue;
            EXPECT_TRUE((kindOf(control) == Kind::groupBox && contains(place, placeOf(other))) ||
                        (kindOf(other) == Kind::groupBox && contains(placeOf(other), place)))
                << nameOf(control) << " overlaps " << nameOf(other);
        }
    }
}

TEST_P(DialogLayout, marginsAreSevenUnits)
{
    if (isAmong(pages))
    {
        // A page has no margin: its group box is the frame's edge.
        const RECT box = placeOf(m_dialog.controls().front());
        EXPECT_EQ(box.left, 0);
        EXPECT_EQ(box.top, 0);
        return;
    }
    const SIZE size = clientSize(m_dialog.window());
    const SIZE margin = m_dialog.pixels(7, 7);
    RECT used = {size.cx, size.cy, 0, 0};
    for (const HWND control : m_dialog.controls())
    {
        const RECT place = placeOf(control);
        // Wine adds its edge to the line's size.
        if (classOf(control) != L"Static" || (styleOf(control) & SS_TYPEMASK) != SS_ETCHEDHORZ)
            ::UnionRect(&used, &used, &place);
    }
    // One pixel for rounding.
    EXPECT_NEAR(used.left, margin.cx, 1);
    EXPECT_NEAR(used.top, margin.cy, 1);
    EXPECT_NEAR(size.cx - used.right, margin.cx, 1);
    EXPECT_NEAR(size.cy - used.bottom, margin.cy, 1);
}

TEST_P(DialogLayout, hasTheFontOfTheSystemsDialogs)
{
    for (const HWND control : m_dialog.controls())
    {
        LOGFONTW font = {};
        const auto handle = reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0));
        if (!handle) // a tree or a slider without texts of the template
            continue;
        ASSERT_NE(::GetObjectW(handle, sizeof(font), &font), 0);
        EXPECT_STREQ(font.lfFaceName, L"MS Shell Dlg 2") << nameOf(control);
    }
    EXPECT_TRUE((styleOf(m_dialog.window()) & DS_SHELLFONT) == DS_SHELLFONT);
}

TEST_P(DialogLayout, fitsWhereItBelongs)
{
    const LONG style = styleOf(m_dialog.window());
    const LONG exStyle = ::GetWindowLongW(m_dialog.window(), GWL_EXSTYLE);
    if (isAmong(ownDialogs))
    {
        EXPECT_EQ(style & (WS_POPUP | WS_CHILD), static_cast<LONG>(WS_POPUP));
        EXPECT_EQ(LOWORD(::SendMessageW(m_dialog.window(), DM_GETDEFID, 0, 0)), IDOK);
        EXPECT_NE(m_dialog.control(IDCANCEL), nullptr);
        return;
    }
    EXPECT_EQ(style & (WS_POPUP | WS_CHILD), WS_CHILD);
    if (isAmong(pages))
    {
        EXPECT_EQ(style & (DS_CONTROL | WS_CAPTION | WS_VISIBLE), DS_CONTROL);
        EXPECT_EQ(exStyle & WS_EX_CONTROLPARENT, WS_EX_CONTROLPARENT);
        const OpenedDialog tab(m_library.get(), IDD_DEVICE);
        const SIZE frame = clientSize(tab.control(IDC_PAGE_FRAME));
        EXPECT_LE(clientSize(m_dialog.window()).cx, frame.cx);
        EXPECT_LE(clientSize(m_dialog.window()).cy, frame.cy);
    }
    else
    {
        const OpenedDialog other(m_library.get(), id() == IDD_GENERAL ? IDD_DEVICE : IDD_GENERAL);
        EXPECT_EQ(clientSize(m_dialog.window()).cx, clientSize(other.window()).cx);
        EXPECT_EQ(clientSize(m_dialog.window()).cy, clientSize(other.window()).cy);
    }
}
} // namespace
