#include "tests/support/operator/Hands.h"

#include "mfc/AfxRes.h"
#include "resources/Resource.h"

#include <commctrl.h>
#include <stdexcept>
#include <utility>

namespace editordriver
{
namespace
{
constexpr int boxTextControl = 0xFFFF;
constexpr LPARAM previousState = LPARAM{1} << 30;
constexpr LPARAM released = (LPARAM{1} << 31) | previousState;

bool isUsableDialog(HWND window)
{
    return ::IsWindowVisible(window) && ::IsWindowEnabled(window) && classOf(window) == L"#32770";
}

HWND usableDialogOf(DWORD thread, HWND other)
{
    struct Search
    {
        HWND other;
        HWND found;
    } search{other, nullptr};
    ::EnumThreadWindows(
        thread,
        [](HWND window, LPARAM parameter) -> BOOL
        {
            auto* wanted = reinterpret_cast<Search*>(parameter);
            if (window == wanted->other || !isUsableDialog(window))
                return TRUE;
            wanted->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

[[noreturn]] void cannot(int id, const char* why)
{
    throw std::runtime_error("control " + std::to_string(id) + " " + why);
}

void pressKey(HWND window, WPARAM key)
{
    ::SendMessageW(window, WM_KEYDOWN, key, 1);
    ::SendMessageW(window, WM_KEYUP, key, released | 1);
}

void stepTo(HWND window, int (*position)(HWND), int wanted, WPARAM more, WPARAM less, int id)
{
    for (int at = position(window); at != wanted;)
    {
        pressKey(window, at < wanted ? more : less);
        const int now = position(window);
        if (now == at)
            cannot(id, "does not go there");
        at = now;
    }
}

int comboPosition(HWND window)
{
    return static_cast<int>(::SendMessageW(window, CB_GETCURSEL, 0, 0));
}

int sliderPosition(HWND window)
{
    return static_cast<int>(::SendMessageW(window, TBM_GETPOS, 0, 0));
}

} // namespace

void Hands::awaitDialog()
{
    awaitDialogUnless([] { return false; });
}

bool Hands::awaitDialogUnless(const std::function<bool()>& over)
{
    HWND found = nullptr;
    await("a dialog", [&] { return (found = usableDialogOf(m_ui.id(), m_dialog)) != nullptr || over(); });
    if (!found)
        return false;
    m_dialog = found;
    m_ui.settle();
    return true;
}

void Hands::awaitClosed()
{
    // A sheet that is closed is hidden or disabled before it is destroyed.
    await("the dialog to close", [&] { return !::IsWindow(m_dialog) || !::IsWindowVisible(m_dialog); });
    m_dialog = usableDialogOf(m_ui.id(), m_dialog);
    m_ui.settle();
    if (!m_dialog)
        m_dialog = usableDialogOf(m_ui.id(), nullptr);
}

HWND Hands::control(int id) const
{
    const HWND found = visibleControl(m_dialog, id);
    if (!found)
        cannot(id, "is not to be seen");
    return found;
}

bool Hands::hasControl(int id) const noexcept
{
    return visibleControl(m_dialog, id) != nullptr;
}

HWND Hands::usable(int id) const
{
    const HWND found = control(id);
    if (!isUsable(found))
        cannot(id, "is disabled");
    return found;
}

void Hands::click(int id)
{
    ::PostMessageW(usable(id), BM_CLICK, 0, 0);
    m_ui.settle();
}

void Hands::sendCommand(int id)
{
    ::SendMessageW(m_dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
    m_ui.settle();
}

void Hands::postCommand(int id)
{
    ::PostMessageW(m_dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
    m_ui.settle();
}

void Hands::pressEscape()
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    if (!::GetGUIThreadInfo(m_ui.id(), &info) || !info.hwndFocus)
        throw std::runtime_error("no control has the focus");
    ::PostMessageW(info.hwndFocus, WM_KEYDOWN, VK_ESCAPE, 1);
    ::PostMessageW(info.hwndFocus, WM_KEYUP, VK_ESCAPE, released | 1);
    m_ui.settle();
}

void Hands::type(int id, const std::wstring& text)
{
    const HWND edit = usable(id);
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Hands::typeFileName(const std::wstring& fullPath)
{
    const HWND field = fileNameField(m_dialog);
    if (!field)
        throw std::runtime_error("this is not a Save dialog");
    ::SendMessageW(usable(::GetDlgCtrlID(field)), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(fullPath.c_str()));
}

void Hands::choose(int id, int index)
{
    stepTo(usable(id), &comboPosition, index, VK_DOWN, VK_UP, id);
}

void Hands::slide(int id, int position)
{
    stepTo(usable(id), &sliderPosition, position, VK_RIGHT, VK_LEFT, id);
}

void Hands::showTab(int index)
{
    ::SendMessageW(usable(AFX_IDC_TAB_CONTROL), TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0);
    m_ui.settle();
}

void Hands::selectEntry(int type)
{
    const HWND window = tree();
    for (const TreeItem& entry : itemsOf(window))
        if (detailsOf(window, entry.item).details.lParam == type)
        {
            ::SendMessageW(window, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(entry.item));
            return;
        }
    throw std::runtime_error("the tree has no entry of type " + std::to_string(type));
}

std::wstring Hands::title() const
{
    return textOf(m_dialog);
}

std::wstring Hands::boxText() const
{
    return textOf(control(boxTextControl));
}

int Hands::valueOf(HWND window)
{
    const std::wstring kind = classOf(window);
    if (::lstrcmpiW(kind.c_str(), L"ComboBox") == 0)
        return comboPosition(window);
    if (kind == TRACKBAR_CLASSW)
        return sliderPosition(window);
    return static_cast<int>(::SendMessageW(window, BM_GETCHECK, 0, 0));
}

bool Hands::isEnabled(int id) const
{
    const HWND window = control(id);
    return ::IsWindowEnabled(window) && ::IsWindowEnabled(::GetParent(window));
}

int Hands::tab() const
{
    return static_cast<int>(::SendMessageW(control(AFX_IDC_TAB_CONTROL), TCM_GETCURSEL, 0, 0));
}

HWND Hands::tree() const
{
    return control(IDC_TREE);
}

std::vector<TreeEntry> Hands::entries() const
{
    const HWND window = tree();
    std::vector<TreeEntry> all;
    for (const auto& [item, depth] : itemsOf(window))
    {
        const auto [details, label] = detailsOf(window, item);
        all.push_back({static_cast<int>(details.lParam), depth, (details.state & TVIS_OVERLAYMASK) != 0, label});
    }
    return all;
}
} // namespace editordriver
