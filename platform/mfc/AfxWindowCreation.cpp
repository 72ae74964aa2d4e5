#include "mfc/AfxWindowCreation.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/CInvalidArgException.h"
#include "mfc/CWnd.h"

#include <string_view>

namespace
{
bool isInputMethodWindow(HWND hWnd)
{
    WCHAR name[16] = {};
    ::GetClassNameW(hWnd, name, 16);
    const std::wstring_view text(name);
    return text == L"IME" || text == L"MSCTFIME UI";
}

LRESULT CALLBACK creationHook(int code, WPARAM wParam, LPARAM lParam)
{
    AFX_THREAD_STATE* state = AfxFindThreadState();
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    if (code != HCBT_CREATEWND || !state || !state->m_pWndInit || isInputMethodWindow(hWnd))
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    try
    {
        CWnd* object = std::exchange(state->m_pWndInit, nullptr);
        object->SubclassWindow(hWnd);
    }
    catch (...)
    {
        // The object could not be attached, so the window must not be created either.
        AfxKeepException();
        state->m_hHookCreate.reset();
        return 1;
    }
    const LRESULT result = ::CallNextHookEx(nullptr, code, wParam, lParam);
    if (!state->m_pWndInit)
        state->m_hHookCreate.reset();
    return result;
}
} // namespace

void AfxHookWindowCreate(CWnd* pWnd)
{
    if (!pWnd || pWnd->m_hWnd)
        return;
    AFX_THREAD_STATE& state = AfxGetThreadState();
    if (!state.m_hHookCreate)
        state.m_hHookCreate = HookHandle(::SetWindowsHookExW(WH_CBT, &creationHook, nullptr, ::GetCurrentThreadId()));
    if (!state.m_hHookCreate)
        AfxThrowInvalidArgException();
    state.m_pWndInit = pWnd;
}

bool AfxUnhookWindowCreate() noexcept
{
    AFX_THREAD_STATE* state = AfxFindThreadState();
    if (!state)
        return true;
    state->m_hHookCreate.reset();
    return std::exchange(state->m_pWndInit, nullptr) == nullptr;
}

AfxWindowCreation::AfxWindowCreation(CWnd* pWnd) : m_outer(AfxGetThreadState().m_pWndInit)
{
    AfxHookWindowCreate(pWnd);
}

AfxWindowCreation::~AfxWindowCreation()
{
    AfxUnhookWindowCreate();
    if (!m_outer)
        return;
    try
    {
        AfxHookWindowCreate(m_outer);
    }
    catch (...)
    {
        AfxKeepException();
    }
}
