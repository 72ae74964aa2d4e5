#include "mfc/CWnd.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxWindowCreation.h"

#include <algorithm>

CWnd::~CWnd()
{
    if (AFX_THREAD_STATE* state = AfxFindThreadState(); state && state->m_pWndInit == this)
        state->m_pWndInit = nullptr;
    // The window's handlers would use a destroyed object, so the window is destroyed too. No virtual function can be
    // called here any more.
    if (m_hWnd)
        CWnd::DestroyWindow();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) noexcept
{
    const AFX_THREAD_STATE* state = AfxFindThreadState();
    if (!state || !hWnd)
        return nullptr;
    const auto found = state->m_windows.find(hWnd);
    return found == state->m_windows.end() ? nullptr : found->second;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (!hWnd)
        return nullptr;
    if (CWnd* permanent = FromHandlePermanent(hWnd))
        return permanent;
    auto& temporary = AfxGetThreadState().m_temporary;
    const auto found = std::ranges::find_if(temporary, [hWnd](const auto& object) { return object->m_hWnd == hWnd; });
    if (found != temporary.end())
        return found->get();
    temporary.push_back(std::make_unique<CWnd>());
    temporary.back()->m_hWnd = hWnd;
    return temporary.back().get();
}

BOOL CWnd::Attach(HWND hWnd)
{
    if (!hWnd || m_hWnd || !AfxGetThreadState().m_windows.emplace(hWnd, this).second)
        return FALSE;
    m_hWnd = hWnd;
    return TRUE;
}

HWND CWnd::Detach() noexcept
{
    const HWND hWnd = std::exchange(m_hWnd, nullptr);
    m_pfnSuper = nullptr;
    // A temporary object is not in the map, and an entry for another object is left alone.
    if (FromHandlePermanent(hWnd) == this)
        AfxFindThreadState()->m_windows.erase(hWnd);
    return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    const LONG_PTR former = ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc));
    // Already our procedure if the previous object was only detached; unhandled messages then go to the procedure of
    // the window's class.
    m_pfnSuper = reinterpret_cast<WNDPROC>(former) == &AfxWndProc ? nullptr : reinterpret_cast<WNDPROC>(former);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, const CWnd* pParent)
{
    return pParent ? SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(id))) : FALSE;
}

HWND CWnd::UnsubclassWindow() noexcept
{
    // Code that subclassed after us calls our procedure; removing theirs would cut them off.
    if (m_pfnSuper && reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC)) == &AfxWndProc)
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    return Detach();
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y, int width,
                    int height, HWND parent, HMENU idOrMenu, void* param)
{
    if (m_hWnd)
        return FALSE;
    AfxExceptionScope scope;
    HWND created = nullptr;
    {
        const AfxWindowCreation creation(this);
        created = ::CreateWindowExW(exStyle, className, windowName, style, x, y, width, height, parent, idOrMenu,
                                    AfxGetInstanceHandle(), param);
    }
    // The map is asked before any member is touched: the object may have deleted itself with its window.
    if (scope.hasException() && created && FromHandlePermanent(created) == this)
        DestroyWindow();
    scope.rethrow();
    return created ? TRUE : FALSE;
}

BOOL CWnd::Create(LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect, CWnd* pParent, UINT id)
{
    return CreateEx(0, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParent ? pParent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)));
}

BOOL CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    const HWND hWnd = m_hWnd;
    const BOOL destroyed = ::DestroyWindow(hWnd);
    // The object may have deleted itself by now, so the map is asked first. An object is still in it if its window was
    // only attached, because nothing reported the window's destruction to it.
    if (destroyed && FromHandlePermanent(hWnd) == this)
        Detach();
    return destroyed;
}

void CWnd::PostNcDestroy() {}
