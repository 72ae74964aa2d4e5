#include "StepByStep.h"

namespace
{
const wchar_t* const className = L"StepByStep";
constexpr UINT nextStep = WM_APP;
constexpr wchar_t dialogClass[] = L"#32770";

BOOL CALLBACK firstDialog(HWND window, LPARAM result)
{
    wchar_t name[16] = {};
    ::GetClassNameW(window, name, 16);
    if (::lstrcmpW(name, dialogClass) != 0 || !::IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}
} // namespace

StepByStep::StepByStep()
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = &StepByStep::procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassExW(&windowClass);
    m_window =
        ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    ::SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

StepByStep::~StepByStep()
{
    ::DestroyWindow(m_window);
    ::UnregisterClassW(className, ::GetModuleHandleW(nullptr));
}

void StepByStep::add(Step step)
{
    if (m_steps.empty())
        ::PostMessageW(m_window, nextStep, 0, 0);
    m_steps.push_back(std::move(step));
}

LRESULT CALLBACK StepByStep::procedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    auto* const self = reinterpret_cast<StepByStep*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || message != nextStep)
        return ::DefWindowProcW(window, message, first, second);
    if (self->m_steps.empty())
        return 0;
    const Step step = self->m_steps.front();
    self->m_steps.pop_front();
    // Posted first: a step that opens a message box is still running when the next one closes it.
    if (!self->m_steps.empty())
        ::PostMessageW(window, nextStep, 0, 0);
    step();
    return 0;
}

HWND StepByStep::topDialog()
{
    HWND found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &firstDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}
