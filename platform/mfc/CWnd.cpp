#include "mfc/CWnd.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxWindowCreation.h"

#include <algorithm>

CWnd::~CWnd()
{
    if (AFX_THREAD_STATE* state = AfxFindThreadState(); state && state->m_pWndInit == this)
        state->m_pWndInit = nullptr;
    // Its handlers would use an object that is gone, so the window goes too. Nothing virtual is left to call here.
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
    // A temporary object is not in the map, and somebody else's entry is left alone.
    if (FromHandlePermanent(hWnd) == this)
        AfxFindThreadState()->m_windows.erase(hWnd);
    return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    const LONG_PTR former = ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc));
    // Ours already when the object before was only detached; the class's own procedure is then the one to go on with.
    m_pfnSuper = reinterpret_cast<WNDPROC>(former) == &AfxWndProc ? nullptr : reinterpret_cast<WNDPROC>(former);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, const CWnd* pParent)
{
    return pParent ? SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(id))) : FALSE;
}

HWND CWnd::UnsubclassWindow() noexcept
{
    // Somebody who subclassed after us calls our procedure; taking theirs away would cut them off.
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
    // No member is touched before the map was asked: the object may have deleted itself with its window.
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
    // The object may have deleted itself by now, so the map is asked first. Still there is an object whose window was
    // only attached: nobody told it that the window died.
    if (destroyed && FromHandlePermanent(hWnd) == this)
        Detach();
    return destroyed;
}

void CWnd::PostNcDestroy() {}
