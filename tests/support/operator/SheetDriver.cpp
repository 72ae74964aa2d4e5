#include "tests/support/operator/SheetDriver.h"

#include "mfc/AfxRes.h"
#include "tests/win/support/FailingMemory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <exception>
#include <stdexcept>
#include <string_view>
#include <thread>

namespace
{
// Ends a test that hangs; nothing takes a tenth of it.
constexpr auto limit = std::chrono::seconds(60);
constexpr UINT limitInMilliseconds = 60000;

// What the marker of settle() has in wParam.
constexpr WPARAM markerSign = 0x5E771E;

SheetDriver* current = nullptr;

bool isDialog(HWND window)
{
    return classOf(window) == L"#32770" && !(::GetWindowLongW(window, GWL_STYLE) & WS_CHILD);
}

struct Search
{
    int id;
    HWND found = nullptr;
};

BOOL CALLBACK lookAtControl(HWND window, LPARAM param)
{
    auto& search = *reinterpret_cast<Search*>(param);
    if (::GetDlgCtrlID(window) != search.id)
        return TRUE;
    search.found = window;
    return FALSE;
}

HWND findControl(HWND window, int id)
{
    if (const HWND visible = visibleControl(window, id))
        return visible;
    Search hidden{id};
    ::EnumChildWindows(window, &lookAtControl, reinterpret_cast<LPARAM>(&hidden));
    return hidden.found;
}

struct BoxParts
{
    std::vector<int> buttons;
    HWND text = nullptr;
    HWND icon = nullptr;
};

BOOL CALLBACK addPart(HWND window, LPARAM param)
{
    auto& parts = *reinterpret_cast<BoxParts*>(param);
    if (!::IsWindowVisible(window))
        return TRUE;
    if (classOf(window) == L"Button")
        parts.buttons.push_back(::GetDlgCtrlID(window));
    else if ((::GetWindowLongW(window, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
        parts.icon = window;
    else if (classOf(window) == L"Static")
        parts.text = window;
    return TRUE;
}

BOOL CALLBACK cancelWindow(HWND window, LPARAM)
{
    if (isDialog(window) && ::IsWindowEnabled(window))
    {
        // A question may have no Cancel.
        ::PostMessageW(window, WM_COMMAND, IDNO, 0);
        ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        ::PostMessageW(window, WM_COMMAND, IDOK, 0);
    }
    return TRUE;
}

bool belongsToTheSystem(HWND window)
{
    const std::wstring name = classOf(window);
    return name == L"IME" || name == L"MSCTFIME UI";
}

BOOL CALLBACK countWindow(HWND window, LPARAM param)
{
    if (belongsToTheSystem(window))
        return TRUE;
    ++*reinterpret_cast<std::size_t*>(param);
    ::EnumChildWindows(window, &countWindow, param);
    return TRUE;
}

void mustBeUsable(HWND window, const char* what)
{
    if (!isUsable(window))
        throw std::runtime_error(std::string(what) + " that a person could not use");
}
} // namespace

SheetDriver::SheetDriver()
    : m_thread(::GetCurrentThreadId()), m_windowHook(::SetWindowsHookExW(WH_CBT, &watchWindows, nullptr, m_thread)),
      m_messageHook(::SetWindowsHookExW(WH_GETMESSAGE, &watchMessages, nullptr, m_thread))
{
    if (current || !m_windowHook || !m_messageHook)
        throw std::runtime_error("no hooks to watch windows with");
    current = this;
}

SheetDriver::~SheetDriver()
{
    current = nullptr;
}

LRESULT CALLBACK SheetDriver::watchWindows(int code, WPARAM wParam, LPARAM lParam)
{
    const FailingMemory::Exempt exempt;
    const auto window = reinterpret_cast<HWND>(wParam);
    if (current && (code == HCBT_ACTIVATE || code == HCBT_DESTROYWND))
    {
        const std::lock_guard lock(current->m_mutex);
        if (code == HCBT_DESTROYWND)
            current->m_known.erase(window);
        else if (isDialog(window) && current->m_known.insert(window).second)
            current->m_shown.push_back(window);
        current->m_changed.notify_all();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK SheetDriver::watchMessages(int code, WPARAM wParam, LPARAM lParam)
{
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    if (current && code == HC_ACTION && message->message == WM_NULL && message->wParam == markerSign)
    {
        const std::lock_guard lock(current->m_mutex);
        current->m_settled = message->lParam;
        current->m_changed.notify_all();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void SheetDriver::run(const std::function<void()>& show, const Script& script)
{
    SheetDriver driver;
    const KernelHandle done(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    std::thread user(
        [&]
        {
            driver.runScript(script);
            ::SetEvent(done.get());
        });
    std::exception_ptr thrown;
    try
    {
        show();
    }
    catch (...)
    {
        thrown = std::current_exception();
    }
    {
        const std::lock_guard lock(driver.m_mutex);
        driver.m_ended = true;
        driver.m_changed.notify_all();
    }
    driver.awaitThread(done.get());
    user.join();
    if (thrown)
        std::rethrow_exception(thrown);
}

void SheetDriver::runScript(const Script& script)
{
    bool isDone = false;
    try
    {
        script(*this);
        isDone = true;
    }
    catch (const std::exception& e)
    {
        ADD_FAILURE() << "The script stopped: " << e.what();
    }
    if (isDone)
    {
        std::unique_lock lock(m_mutex);
        if (m_changed.wait_for(lock, limit, [this] { return m_ended; }))
            return;
        ADD_FAILURE() << "The script left a window open";
    }
    closeWindows();
}

void SheetDriver::closeWindows()
{
    for (;;)
    {
        ::EnumThreadWindows(m_thread, &cancelWindow, 0);
        std::unique_lock lock(m_mutex);
        if (m_changed.wait_for(lock, std::chrono::milliseconds(200), [this] { return m_ended; }))
            return;
    }
}

// The script may still send messages to this thread's windows.
void SheetDriver::awaitThread(HANDLE done) const
{
    MSG message = {};
    while (::MsgWaitForMultipleObjects(1, &done, FALSE, INFINITE, QS_SENDMESSAGE) != WAIT_OBJECT_0)
        ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

template <class Condition>
void SheetDriver::await(const char* what, std::unique_lock<std::mutex>& lock, Condition condition)
{
    const bool came = m_changed.wait_for(lock, limit, [&] { return m_ended || condition(); });
    if (!came || !condition())
        throw std::runtime_error(std::string("no longer any hope for ") + what);
}

HWND SheetDriver::awaitWindow()
{
    std::unique_lock lock(m_mutex);
    await("a window", lock, [this] { return !m_shown.empty(); });
    const HWND window = m_shown.front();
    m_shown.pop_front();
    lock.unlock();
    // It comes up while it is still being created; its thread replies once it waits for input.
    send(window, WM_NULL);
    return window;
}

void SheetDriver::awaitClosed(HWND window)
{
    std::unique_lock lock(m_mutex);
    await("the end of a window", lock, [&] { return !m_known.contains(window); });
}

void SheetDriver::settle()
{
    // Never used again: a loop that ended may have left one in the queue.
    static std::atomic<LPARAM> markers = 0;
    const LPARAM marker = ++markers;
    // To the thread: a window could go before its turn comes.
    if (!::PostThreadMessageW(m_thread, WM_NULL, markerSign, marker))
        throw std::runtime_error("nothing can be posted");
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait_for(lock, limit, [&] { return m_ended || m_settled >= marker; }))
        throw std::runtime_error("the messages are not handled");
}

HWND SheetDriver::control(HWND window, int id) const
{
    const HWND found = findControl(window, id);
    if (!found)
        throw std::runtime_error("no control " + std::to_string(id));
    return found;
}

bool SheetDriver::hasControl(HWND window, int id) const
{
    return findControl(window, id) != nullptr;
}

HWND SheetDriver::focus() const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return ::GetGUIThreadInfo(m_thread, &info) ? info.hwndFocus : nullptr;
}

LRESULT SheetDriver::send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const
{
    DWORD_PTR result = 0;
    ::SetLastError(ERROR_SUCCESS);
    if (!::SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, limitInMilliseconds, &result) &&
        ::GetLastError() == ERROR_TIMEOUT)
        throw std::runtime_error("no answer to message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

void SheetDriver::post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const
{
    if (!::PostMessageW(window, message, wParam, lParam))
        throw std::runtime_error("message " + std::to_string(message) + " could not be posted");
}

std::wstring SheetDriver::text(HWND window) const
{
    std::wstring text(static_cast<std::size_t>(send(window, WM_GETTEXTLENGTH)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        send(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void SheetDriver::focusOn(HWND control) const
{
    mustBeUsable(control, "focus on a control");
    send(::GetAncestor(control, GA_ROOT), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void SheetDriver::click(HWND window, int id) const
{
    const HWND button = control(window, id);
    mustBeUsable(button, "click on a button");
    send(button, BM_CLICK);
}

void SheetDriver::press(HWND window, int id) const
{
    const HWND button = control(window, id);
    mustBeUsable(button, "click on a button");
    post(button, BM_CLICK);
}

void SheetDriver::enter(HWND window, int id, const std::wstring& text) const
{
    const HWND edit = control(window, id);
    focusOn(edit);
    send(edit, EM_SETSEL, 0, -1);
    send(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void SheetDriver::key(WORD virtualKey)
{
    const HWND window = focus();
    if (!window)
        throw std::runtime_error("a key without a focus");
    post(window, WM_KEYDOWN, virtualKey, 1);
    settle();
}

HWND SheetDriver::tabs(HWND sheet) const
{
    return control(sheet, AFX_IDC_TAB_CONTROL);
}

HWND SheetDriver::page(HWND sheet) const
{
    return reinterpret_cast<HWND>(send(sheet, PSM_GETCURRENTPAGEHWND));
}

int SheetDriver::selectedTab(HWND sheet) const
{
    return static_cast<int>(send(tabs(sheet), TCM_GETCURSEL));
}

void SheetDriver::selectTab(HWND sheet, int index) const
{
    const HWND control = tabs(sheet);
    mustBeUsable(control, "a click on a tab");
    send(control, TCM_SETCURFOCUS, static_cast<WPARAM>(index));
}

BoxTexts SheetDriver::read(HWND box) const
{
    BoxParts parts;
    ::EnumChildWindows(box, &addPart, reinterpret_cast<LPARAM>(&parts));
    if (!parts.text)
        throw std::runtime_error("this is not a message box");
    BoxTexts texts;
    texts.caption = text(box);
    texts.text = text(parts.text);
    texts.buttons = parts.buttons;
    texts.defaultButton = LOWORD(send(box, DM_GETDEFID));
    if (parts.icon)
        texts.icon = reinterpret_cast<HICON>(send(parts.icon, STM_GETICON));
    texts.owner = ::GetWindow(box, GW_OWNER);
    return texts;
}

void SheetDriver::answer(HWND box, int button)
{
    press(box, button);
    awaitClosed(box);
}

BoxTexts SheetDriver::answerNext(int button)
{
    const HWND box = awaitWindow();
    BoxTexts texts = read(box);
    answer(box, button);
    return texts;
}

std::size_t windowsOfThread()
{
    std::size_t count = 0;
    ::EnumThreadWindows(::GetCurrentThreadId(), &countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}
