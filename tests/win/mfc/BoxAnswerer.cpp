#include "tests/win/mfc/BoxAnswerer.h"

#include "mfc/CWnd.h"

#include <stdexcept>

namespace
{
constexpr int textControl = 0xFFFF; // the control with a message box's text

BoxAnswerer* current = nullptr;

std::wstring textOf(HWND hWnd)
{
    std::wstring text(512, WCHAR());
    text.resize(static_cast<std::size_t>(::GetWindowTextW(hWnd, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool isBox(HWND hWnd)
{
    WCHAR name[16] = {};
    ::GetClassNameW(hWnd, name, 16);
    return std::wstring_view(name) == L"#32770" && !CWnd::FromHandlePermanent(hWnd);
}
} // namespace

BoxAnswerer::BoxAnswerer() : m_hook(::SetWindowsHookExW(WH_CBT, &hook, nullptr, ::GetCurrentThreadId()))
{
    if (!m_hook || current)
        throw std::runtime_error("no hook for message boxes");
    current = this;
}

BoxAnswerer::~BoxAnswerer()
{
    current = nullptr;
    ::UnhookWindowsHookEx(m_hook);
}

LRESULT CALLBACK BoxAnswerer::hook(int code, WPARAM wParam, LPARAM lParam)
{
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current && isBox(hWnd))
    {
        current->m_boxes.push_back({textOf(hWnd), textOf(::GetDlgItem(hWnd, textControl)), ::GetParent(hWnd)});
        if (current->m_whileOpen)
            current->m_whileOpen();
        ::PostMessageW(hWnd, WM_COMMAND, IDOK, 0);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}
