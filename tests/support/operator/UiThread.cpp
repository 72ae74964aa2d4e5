#include "tests/support/operator/UiThread.h"

#include <chrono>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace editordriver
{
namespace
{
constexpr UINT doNowMessage = WM_APP;
constexpr UINT startMessage = WM_APP + 1;
constexpr UINT markMessage = WM_APP + 2;
constexpr auto longestWait = std::chrono::seconds(30);

struct Work
{
    const std::function<void()>* function;
    std::exception_ptr thrown;
};
} // namespace

UiThread::UiThread() : m_id(::GetCurrentThreadId())
{
    if (!m_window.handle())
        throw std::runtime_error("cannot create a window");
}

void UiThread::run()
{
    MSG message = {};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0)
    {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void UiThread::quit()
{
    ::PostThreadMessageW(m_id, WM_QUIT, 0, 0);
}

void UiThread::doNow(const std::function<void()>& work)
{
    Work request{&work, nullptr};
    ::SendMessageW(m_window.handle(), doNowMessage, 0, reinterpret_cast<LPARAM>(&request));
    if (request.thrown)
        std::rethrow_exception(request.thrown);
}

void UiThread::start(std::function<void()> work)
{
    auto owned = std::make_unique<std::function<void()>>(std::move(work));
    if (!::PostMessageW(m_window.handle(), startMessage, 0, reinterpret_cast<LPARAM>(owned.get())))
        throw std::runtime_error("the windows' thread takes no message");
    static_cast<void>(owned.release()); // the message owns it now
}

void UiThread::settle()
{
    const unsigned mark = ++m_marksPosted;
    ::PostMessageW(m_window.handle(), markMessage, mark, 0);
    await("the windows to settle", [this, mark] { return m_marksSeen >= mark; });
}

std::optional<LRESULT> UiThread::handle(UINT message, WPARAM first, LPARAM second)
{
    switch (message)
    {
    case doNowMessage:
    {
        auto* work = reinterpret_cast<Work*>(second);
        try
        {
            (*work->function)();
        }
        catch (...)
        {
            work->thrown = std::current_exception();
        }
        return 0;
    }
    case startMessage:
    {
        const std::unique_ptr<std::function<void()>> work(reinterpret_cast<std::function<void()>*>(second));
        (*work)();
        return 0;
    }
    case markMessage:
        m_marksSeen = static_cast<unsigned>(first);
        return 0;
    default:
        return std::nullopt;
    }
}

void await(const char* what, const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error(std::string("waited in vain for ") + what);
        std::this_thread::yield();
        ::SleepEx(1, FALSE);
    }
}
} // namespace editordriver
