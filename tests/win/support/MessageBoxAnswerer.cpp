#include "tests/win/support/MessageBoxAnswerer.h"

#include "tests/win/support/FailingMemory.h"

#include <stdexcept>
#include <string_view>

namespace
{
// The static control that holds a message box's text.
constexpr int textControl = 0xFFFF;

MessageBoxAnswerer* current = nullptr;

std::wstring windowText(HWND window)
{
    std::wstring text(512, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool looksLikeABox(HWND window)
{
    wchar_t name[16] = {};
    ::GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770";
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
    ::UnhookWindowsHookEx(m_hook);
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
    m_boxes.push_back({windowText(box), windowText(::GetDlgItem(box, textControl)), ::GetParent(box)});
    if (m_whileOpen)
        m_whileOpen();
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
}
