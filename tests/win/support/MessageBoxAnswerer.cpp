#include "tests/win/support/MessageBoxAnswerer.h"

#include "tests/support/operator/WindowTools.h"
#include "tests/win/support/FailingMemory.h"

#include <stdexcept>

namespace
{
// The static control that holds a message box's text.
constexpr int textControl = 0xFFFF;

MessageBoxAnswerer* current = nullptr;

bool looksLikeABox(HWND window)
{
    return classOf(window) == L"#32770";
}
} // namespace

MessageBoxAnswerer::MessageBoxAnswerer(IsDialog isDialog)
    : m_isDialog(isDialog),
      m_hook(::SetWindowsHookExW(WH_CBT, &MessageBoxAnswerer::hook, nullptr, ::GetCurrentThreadId()))
{
    if (!m_hook || current)
        throw std::runtime_error("no hook for message boxes");
    current = this;
}

MessageBoxAnswerer::~MessageBoxAnswerer()
{
    current = nullptr;
}

LRESULT CALLBACK MessageBoxAnswerer::hook(int code, WPARAM wParam, LPARAM lParam)
{
    const FailingMemory::Exempt exempt;
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current && looksLikeABox(window) &&
        !(current->m_isDialog && current->m_isDialog(window)))
        current->answer(window);
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void MessageBoxAnswerer::answer(HWND box)
{
    m_boxes.push_back({textOf(box), textOf(::GetDlgItem(box, textControl)), ::GetParent(box)});
    if (m_whileOpen)
        m_whileOpen();
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
}
