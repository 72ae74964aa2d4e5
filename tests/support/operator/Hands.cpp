#include "tests/support/operator/Hands.h"

#include "resources/Resource.h"

#include <commctrl.h>
#include <stdexcept>
#include <utility>

namespace editordriver
{
namespace
{
constexpr int tabControl = 0x3020; // of a property sheet
constexpr int boxTextControl = 0xFFFF;
constexpr int fileNameControls[] = {1152, 1148}; // of the two kinds of Save dialog
constexpr LPARAM previousState = LPARAM{1} << 30;
constexpr LPARAM released = (LPARAM{1} << 31) | previousState;

std::wstring className(HWND window)
{
    wchar_t name[64] = {};
    ::GetClassNameW(window, name, 64);
    return name;
}

std::wstring windowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

bool isUsableDialog(HWND window)
{
    return ::IsWindowVisible(window) && ::IsWindowEnabled(window) && className(window) == L"#32770";
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

HWND visibleControl(HWND dialog, int id)
{
    struct Search
    {
        int id;
        HWND found;
    } search{id, nullptr};
    ::EnumChildWindows(
        dialog,
        [](HWND window, LPARAM parameter) -> BOOL
        {
            auto* wanted = reinterpret_cast<Search*>(parameter);
            if (::GetDlgCtrlID(window) != wanted->id || !::IsWindowVisible(window))
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

TreeEntry entryOf(HWND tree, HTREEITEM item, int depth)
{
    std::wstring label(4096, L'\0');
    TVITEMW data = {};
    data.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE | TVIF_TEXT;
    data.hItem = item;
    data.stateMask = TVIS_OVERLAYMASK;
    data.pszText = label.data();
    data.cchTextMax = static_cast<int>(label.size());
    ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data));
    return {static_cast<int>(data.lParam), depth, (data.state & TVIS_OVERLAYMASK) != 0, std::wstring(data.pszText)};
}

HTREEITEM nextItem(HWND tree, WPARAM which, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(::SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

template <class Visit>
void visitItems(HWND tree, HTREEITEM item, int depth, const Visit& visit)
{
    for (; item; item = nextItem(tree, TVGN_NEXT, item))
    {
        visit(item, depth);
        visitItems(tree, nextItem(tree, TVGN_CHILD, item), depth + 1, visit);
    }
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
    if (!::IsWindowEnabled(found) || !::IsWindowEnabled(m_dialog) || !::IsWindowEnabled(::GetParent(found)))
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
    for (const int id : fileNameControls)
    {
        if (!hasControl(id))
            continue;
        ::SendMessageW(usable(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(fullPath.c_str()));
        return;
    }
    throw std::runtime_error("this is no Save dialog");
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
    ::SendMessageW(usable(tabControl), TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0);
    m_ui.settle();
}

void Hands::selectEntry(int type)
{
    const HWND window = tree();
    HTREEITEM wanted = nullptr;
    visitItems(window, nextItem(window, TVGN_ROOT, nullptr), 0,
               [&](HTREEITEM item, int depth)
               {
                   if (entryOf(window, item, depth).type == type)
                       wanted = item;
               });
    if (!wanted)
        throw std::runtime_error("the tree has no entry of type " + std::to_string(type));
    ::SendMessageW(window, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(wanted));
}

std::wstring Hands::textOf(HWND window)
{
    return windowText(window);
}

std::wstring Hands::title() const
{
    return windowText(m_dialog);
}

std::wstring Hands::boxText() const
{
    return windowText(control(boxTextControl));
}

std::vector<std::wstring> Hands::choices(int id) const
{
    const HWND combo = control(id);
    std::vector<std::wstring> texts;
    const auto count = static_cast<WPARAM>(::SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (WPARAM index = 0; index < count; ++index)
    {
        std::wstring text(static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, index, 0)) + 1, L'\0');
        text.resize(static_cast<std::size_t>(
            ::SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()))));
        texts.push_back(std::move(text));
    }
    return texts;
}

int Hands::valueOf(HWND window)
{
    const std::wstring kind = className(window);
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

std::vector<HWND> Hands::controls() const
{
    std::vector<HWND> found;
    ::EnumChildWindows(
        m_dialog,
        [](HWND window, LPARAM parameter) -> BOOL
        {
            if (::IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

int Hands::tab() const
{
    return static_cast<int>(::SendMessageW(control(tabControl), TCM_GETCURSEL, 0, 0));
}

HWND Hands::tree() const
{
    return control(IDC_TREE);
}

std::vector<TreeEntry> Hands::entries() const
{
    const HWND window = tree();
    std::vector<TreeEntry> all;
    visitItems(window, nextItem(window, TVGN_ROOT, nullptr), 0,
               [&](HTREEITEM item, int depth) { all.push_back(entryOf(window, item, depth)); });
    return all;
}
} // namespace editordriver
