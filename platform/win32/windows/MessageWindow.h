#pragma once

#include "win32/windows/SystemHandles.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

// A window that is never shown and only receives messages, on the thread that creates it.
class MessageWindow
{
public:
    // Handles a message and returns its result; nothing leaves the message to the system. It may destroy the window.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM first, LPARAM second)>;

    explicit MessageWindow(Handler handler = {}) : m_handler(std::make_shared<const Handler>(std::move(handler)))
    {
        static constexpr const WCHAR* className = L"GarmMessageWindow";
        const HINSTANCE program = ::GetModuleHandleW(nullptr);
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = &MessageWindow::procedure;
        windowClass.hInstance = program;
        windowClass.lpszClassName = className;
        ::RegisterClassW(&windowClass); // fails from the second window on, which does not matter
        m_window =
            WindowHandle(::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, program, nullptr));
        if (m_window)
            ::SetWindowLongPtrW(m_window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    // Null when the system could not create the window.
    HWND handle() const noexcept { return m_window.get(); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second)
    {
        if (const auto* const self = reinterpret_cast<MessageWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA)))
        {
            // A copy of the pointer, because the handler may destroy this object.
            const std::shared_ptr<const Handler> handler = self->m_handler;
            if (const std::optional<LRESULT> result = *handler ? (*handler)(message, first, second) : std::nullopt)
                return *result;
        }
        return ::DefWindowProcW(window, message, first, second);
    }

    std::shared_ptr<const Handler> m_handler; // before the window, which sends messages while it is destroyed
    WindowHandle m_window;
};
