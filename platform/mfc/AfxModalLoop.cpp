#include "mfc/AfxModalLoop.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/CWnd.h"

#include <utility>

namespace
{
struct Search
{
    DWORD process;
    DWORD thread;
    HWND found;
};

// Called from the topmost window downwards.
BOOL CALLBACK takeFirstUsable(HWND hWnd, LPARAM parameter) noexcept
{
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    const DWORD thread = ::GetWindowThreadProcessId(hWnd, &process);
    if (thread != search.thread || process != search.process)
        return TRUE;
    // Tooltips and the lists of combo boxes are top-level windows too.
    const bool isHelper = (::GetWindowLongW(hWnd, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
    if (isHelper || !::IsWindowVisible(hWnd) || !::IsWindowEnabled(hWnd))
        return TRUE;
    search.found = hWnd;
    return FALSE;
}
} // namespace

HWND AfxGetSafeOwner(HWND hParent) noexcept
{
    if (hParent)
    {
        HWND owner = hParent;
        while (::GetWindowLongW(owner, GWL_STYLE) & WS_CHILD)
        {
            const HWND parent = ::GetParent(owner);
            if (!parent)
                break;
            owner = parent;
        }
        return owner;
    }
    if (const HWND active = ::GetActiveWindow())
        return active;
    Search search = {::GetCurrentProcessId(), ::GetCurrentThreadId(), nullptr};
    ::EnumWindows(&takeFirstUsable, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

AfxDisabledOwner::AfxDisabledOwner(HWND hOwner) noexcept : m_hOwner(hOwner == ::GetDesktopWindow() ? nullptr : hOwner)
{
    if (!m_hOwner || !::IsWindowEnabled(m_hOwner))
        return;
    ::EnableWindow(m_hOwner, FALSE);
    m_disabled = true;
}

void AfxDisabledOwner::enable() noexcept
{
    if (std::exchange(m_disabled, false))
        ::EnableWindow(m_hOwner, TRUE);
}

void AfxDisabledOwner::activate() const noexcept
{
    if (m_hOwner && ::IsWindowEnabled(m_hOwner))
        ::SetActiveWindow(m_hOwner);
}

void AfxRunModalLoop(const CWnd& window, const std::function<bool()>& goesOn)
{
    MSG message = {};
    while (goesOn())
    {
        const BOOL answer = ::GetMessageW(&message, nullptr, 0, 0);
        if (answer == 0)
            ::PostQuitMessage(static_cast<int>(message.wParam));
        if (answer <= 0)
            return;
        if (CWnd::WalkPreTranslateTree(window.m_hWnd, &message))
            continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void AfxDestroyModalWindow(CWnd& window, AfxExceptionScope& scope)
{
    try
    {
        window.DestroyWindow();
    }
    catch (...)
    {
        scope.keep(std::current_exception());
    }
    // An override that threw or forgot its base.
    if (window.m_hWnd)
        window.CWnd::DestroyWindow();
}

void AfxRunModal(const CWnd* pParent, AfxExceptionScope& scope, const std::function<void(HWND owner)>& run,
                 const std::function<void()>& destroy)
{
    AfxDisabledOwner owner(AfxGetSafeOwner(pParent ? pParent->m_hWnd : nullptr));
    try
    {
        run(owner.get());
    }
    catch (...)
    {
        scope.keep(std::current_exception());
    }
    // Before the window goes: the system then activates the next window that is enabled.
    owner.enable();
    destroy();
    owner.activate();
}
