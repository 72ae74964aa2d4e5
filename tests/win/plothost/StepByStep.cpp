#include "StepByStep.h"

namespace
{
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

void StepByStep::add(Step step)
{
    if (m_steps.empty())
        ::PostMessageW(m_window.handle(), nextStep, 0, 0);
    m_steps.push_back(std::move(step));
}

std::optional<LRESULT> StepByStep::handle(UINT message)
{
    if (message != nextStep)
        return std::nullopt;
    if (m_steps.empty())
        return 0;
    const Step step = m_steps.front();
    m_steps.pop_front();
    // Posted first: a step that opens a message box is still running when the next one closes it.
    if (!m_steps.empty())
        ::PostMessageW(m_window.handle(), nextStep, 0, 0);
    step();
    return 0;
}

HWND StepByStep::topDialog()
{
    HWND found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &firstDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}
