#include "tests/support/operator/SentMessages.h"

#include <stdexcept>

namespace
{
SentMessages::Watcher* current = nullptr;

LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HC_ACTION && current)
    {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        (*current)(sent.hwnd, sent.message, sent.wParam, sent.lParam);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}
} // namespace

SentMessages::SentMessages(Watcher watcher)
    : m_watcher(std::move(watcher)), m_hook(::SetWindowsHookExW(WH_CALLWNDPROC, &hook, nullptr, ::GetCurrentThreadId()))
{
    if (!m_hook || current)
        throw std::runtime_error("messages cannot be watched");
    current = &m_watcher;
}

SentMessages::~SentMessages()
{
    current = nullptr;
}
