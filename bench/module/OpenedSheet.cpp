#include "bench/module/OpenedSheet.h"

#include "mfc/AfxRes.h"
#include "win32/windows/MessageWindow.h"

#include <commctrl.h>
#include <exception>
#include <prsht.h>
#include <stdexcept>

namespace modulebench
{
namespace
{
constexpr UINT openedMessage = WM_APP + 1;

// The sheet that is waited for, global because hooks and window procedures have no other way to reach it.
struct Awaited
{
    const std::function<void(HWND)>& use;
    HWND watcher = nullptr;
    HWND sheet = nullptr;
    bool used = false;
    std::exception_ptr thrown = {};
};
Awaited* awaited = nullptr;

bool isSheet(HWND window)
{
    return ::GetDlgItem(window, AFX_IDC_TAB_CONTROL) != nullptr && !(::GetWindowLongW(window, GWL_STYLE) & WS_CHILD);
}

LRESULT CALLBACK watchActivation(int code, WPARAM window, LPARAM details) noexcept
{
    const HWND activated = reinterpret_cast<HWND>(window);
    if (code == HCBT_ACTIVATE && awaited && !awaited->sheet && isSheet(activated))
    {
        awaited->sheet = activated;
        // Fetched from the queue by the sheet's own message loop, when everything before it is done.
        ::PostMessageW(awaited->watcher, openedMessage, 0, 0);
    }
    return ::CallNextHookEx(nullptr, code, window, details);
}

std::optional<LRESULT> useSheet(UINT message)
{
    if (message != openedMessage || !awaited)
        return std::nullopt;
    try
    {
        awaited->use(awaited->sheet);
    }
    catch (...)
    {
        awaited->thrown = std::current_exception();
    }
    awaited->used = true;
    ::PostMessageW(awaited->sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    return 0;
}

// What is waited for, with the hook and the window that it takes, as long as the object lives.
class Watch
{
public:
    explicit Watch(Awaited& sheet)
    {
        sheet.watcher = m_window.handle();
        awaited = &sheet;
    }
    ~Watch() { awaited = nullptr; }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

private:
    MessageWindow m_window{[](UINT message, WPARAM, LPARAM) { return useSheet(message); }};
    HookHandle m_hook{::SetWindowsHookExW(WH_CBT, &watchActivation, nullptr, ::GetCurrentThreadId())};
};
} // namespace

void withSheet(HWND owner, const std::function<void()>& show, const std::function<void(HWND)>& use)
{
    ::SetActiveWindow(owner);
    Awaited sheet{use};
    {
        const Watch watch(sheet);
        show();
    }
    if (sheet.thrown)
        std::rethrow_exception(sheet.thrown);
    if (!sheet.used)
        throw std::runtime_error("no property sheet came up");
}

WindowHandle createOwner()
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    windowClass.lpszClassName = L"ModuleBenchOwner";
    ::RegisterClassW(&windowClass);
    WindowHandle owner(::CreateWindowExW(0, windowClass.lpszClassName, L"Host", WS_POPUP | WS_CAPTION | WS_VISIBLE, 20,
                                         20, 300, 300, nullptr, nullptr, windowClass.hInstance, nullptr));
    if (!owner)
        throw std::runtime_error("cannot create a window");
    paint(owner.get());
    return owner;
}

void paint(HWND window)
{
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void showTab(HWND sheet, int index)
{
    ::SendDlgItemMessageW(sheet, AFX_IDC_TAB_CONTROL, TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0);
}

HWND shownPage(HWND sheet)
{
    return reinterpret_cast<HWND>(::SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}
} // namespace modulebench
