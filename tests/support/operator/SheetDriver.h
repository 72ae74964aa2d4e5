#pragma once

#include "tests/support/operator/WindowTools.h"
#include "win32/windows/SystemHandles.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <vector>

// What a message box says.
struct BoxTexts
{
    std::wstring caption;
    std::wstring text;
    std::vector<int> buttons; // IDOK and so on, from left to right
    int defaultButton = 0;
    HICON icon = nullptr; // a shared icon of the system, null for none
    HWND owner = nullptr;
};

// Plays the user of modal windows. The windows live on the test's thread; a script works on them from a second one, by
// messages and by what a person could do: controls that are hidden or disabled are not pressed. Nothing waits for time
// to pass; the limits only end a test that hangs.
class SheetDriver
{
public:
    using Script = std::function<void(SheetDriver& user)>;

    // Runs show, which opens a modal window and returns when it is closed, and meanwhile the script. Returns when both
    // have ended; what show threw is thrown on. A script that throws or leaves a window open fails the test, and its
    // windows are closed.
    static void run(const std::function<void()>& show, const Script& script);

    SheetDriver(const SheetDriver&) = delete;
    SheetDriver& operator=(const SheetDriver&) = delete;

    // --- Windows ---

    // The next dialog, sheet or message box that comes up; each is delivered once, in their order.
    HWND awaitWindow();
    // Until a window is gone.
    void awaitClosed(HWND window);
    // Until everything that was posted to the thread before is handled, or its last window is closed.
    void settle();

    // A control, at any depth: the visible one of that number, else a hidden one. Throws when there is none.
    HWND control(HWND window, int id) const;
    bool hasControl(HWND window, int id) const;
    HWND focus() const;

    // Cancels every window until none is left: for a script that cannot go on.
    void closeWindows();

    // --- Messages ---

    // Throws when there is no answer for a long time.
    LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    std::wstring text(HWND window) const;
    std::wstring textOf(HWND window, int id) const { return text(control(window, id)); }

    // --- What a user does; each throws when a person could not ---

    // Puts the focus on a control of a dialog.
    void focusOn(HWND control) const;
    // Presses a button and waits until it has done its work.
    void click(HWND window, int id) const;
    // The same for a button that opens a window, or closes the one it is in: does not wait.
    void press(HWND window, int id) const;
    // Types a text in place of the one in an edit control.
    void enter(HWND window, int id, const std::wstring& text) const;
    // Presses a key where the focus is, and settles.
    void key(WORD virtualKey);

    // --- Sheets ---

    HWND tabs(HWND sheet) const;
    HWND page(HWND sheet) const; // the one on show
    int selectedTab(HWND sheet) const;
    void selectTab(HWND sheet, int index) const;

    // --- Message boxes ---

    BoxTexts read(HWND box) const;
    // Presses a button of it and waits until it is gone.
    void answer(HWND box, int button);
    // The next window, which must be a message box: answers it and returns what it said.
    BoxTexts answerNext(int button);

private:
    SheetDriver();
    ~SheetDriver();

    static LRESULT CALLBACK watchWindows(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK watchMessages(int code, WPARAM wParam, LPARAM lParam);

    void runScript(const Script& script);
    void awaitThread(HANDLE done) const;
    template <class Condition>
    void await(const char* what, std::unique_lock<std::mutex>& lock, Condition condition);

    DWORD m_thread;
    HookHandle m_windowHook;
    HookHandle m_messageHook;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<HWND> m_shown; // not delivered yet
    std::set<HWND> m_known;
    LPARAM m_settled = 0; // the last marker of settle() that came through
    bool m_ended = false; // show has returned
};

// Windows of the calling thread and what is in them, without those of the input method.
std::size_t windowsOfThread();
