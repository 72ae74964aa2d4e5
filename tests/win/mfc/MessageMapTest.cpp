// The way of messages from the system through map and virtual functions to the window's former procedure.

#include "tests/win/mfc/WindowTest.h"

#include "mfc/AfxExceptionScope.h"

#include <commctrl.h>

#include <stdexcept>
#include <string>

namespace
{
using MessageMapTest = WindowTest;

constexpr UINT outerMessage = WM_APP + 10;
constexpr UINT nestedMessage = WM_APP + 11;
constexpr UINT unhandledMessage = WM_APP + 12;

class BaseWnd : public TestWnd
{
public:
    std::string m_log;
    NMHDR* m_header = nullptr;
    bool m_nestedThrows = false;
    LRESULT m_defaultAnswer = 0;
    MSG m_currentAfterNested = {};

protected:
    void onBase() { m_log += "base "; }
    void onBoth() { m_log += "base-both "; }
    virtual void onVirtual() { m_log += "base-virtual "; }
    void onSelection() { m_log += "selection "; }
    void onNotify(NMHDR* header, LRESULT* result)
    {
        m_header = header;
        *result = 55;
    }
    LRESULT onOuter(WPARAM, LPARAM)
    {
        SendMessage(nestedMessage, 3, 4);
        m_currentAfterNested = *GetCurrentMessage();
        m_defaultAnswer = Default();
        return 66;
    }
    LRESULT onNested(WPARAM, LPARAM)
    {
        if (m_nestedThrows)
            throw std::runtime_error("nested");
        return Default();
    }
    void OnDestroy()
    {
        m_log += "destroy ";
        CWnd::OnDestroy();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BaseWnd, TestWnd)
ON_COMMAND(1, &BaseWnd::onBase)
ON_COMMAND(2, &BaseWnd::onBoth)
ON_COMMAND(3, &BaseWnd::onVirtual)
ON_CBN_SELCHANGE(4, &BaseWnd::onSelection)
ON_NOTIFY(TVN_SELCHANGEDW, 5, &BaseWnd::onNotify)
ON_MESSAGE(outerMessage, &BaseWnd::onOuter)
ON_MESSAGE(nestedMessage, &BaseWnd::onNested)
ON_WM_DESTROY()
END_MESSAGE_MAP()

class DerivedWnd : public BaseWnd
{
protected:
    void onBoth() { m_log += "derived-both "; }
    void onVirtual() override { m_log += "derived-virtual "; }
    void onClicked() { m_log += "clicked "; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedWnd, BaseWnd)
ON_COMMAND(2, &DerivedWnd::onBoth)
ON_BN_CLICKED(6, &DerivedWnd::onClicked)
END_MESSAGE_MAP()

// A command as a control sends it.
LRESULT notify(const CWnd& window, int id, int code)
{
    return window.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(window.m_hWnd));
}

TEST_F(MessageMapTest, derivedMapPrecedesTheBaseMap)
{
    DerivedWnd window;
    ASSERT_TRUE(window.create());
    for (const int id : {1, 2, 3})
        EXPECT_EQ(window.SendMessage(WM_COMMAND, static_cast<WPARAM>(id)), 1);
    EXPECT_EQ(window.m_log, "base derived-both derived-virtual ");
    EXPECT_TRUE(TestWnd::reachedClass().empty()) << "handled commands went on";
    window.DestroyWindow();
    EXPECT_EQ(window.m_log, "base derived-both derived-virtual destroy ");
}

TEST_F(MessageMapTest, codeAndControlMustBothMatch)
{
    DerivedWnd window;
    ASSERT_TRUE(window.create());
    notify(window, 4, CBN_SELCHANGE);
    notify(window, 6, BN_CLICKED);
    EXPECT_EQ(window.m_log, "selection clicked ");
    EXPECT_EQ(notify(window, 4, CBN_DROPDOWN), TestWnd::classAnswer);
    EXPECT_EQ(notify(window, 6, BN_KILLFOCUS), TestWnd::classAnswer);
    EXPECT_EQ(notify(window, 99, BN_CLICKED), TestWnd::classAnswer);
    EXPECT_EQ(TestWnd::reachedClass().size(), 3U);
    EXPECT_EQ(window.m_log, "selection clicked ");
    window.DestroyWindow();
}

TEST_F(MessageMapTest, shortcutKeyIsCommandWhateverItsCode)
{
    DerivedWnd window;
    ASSERT_TRUE(window.create());
    // Shortcuts come with code 1, which from a combo box would be a selection.
    EXPECT_EQ(window.SendMessage(WM_COMMAND, MAKEWPARAM(1, 1)), 1);
    EXPECT_EQ(window.SendMessage(WM_COMMAND, MAKEWPARAM(4, 1)), TestWnd::classAnswer);
    EXPECT_EQ(window.m_log, "base ");
    window.DestroyWindow();
}

TEST_F(MessageMapTest, notificationsAreFoundByTheirSendersNumber)
{
    BaseWnd window;
    ASSERT_TRUE(window.create());
    CWnd sender;
    ASSERT_TRUE(sender.Create(L"Static", L"", WS_CHILD, RECT{0, 0, 5, 5}, &window, 5));
    NMHDR header = {sender, 777, TVN_SELCHANGEDW};
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 777, reinterpret_cast<LPARAM>(&header)), 55);
    EXPECT_EQ(window.m_header, &header);

    header.code = TVN_SELCHANGINGW;
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)), TestWnd::classAnswer);
    window.DestroyWindow();
}

TEST_F(MessageMapTest, aNotificationWithoutHeaderOrSenderGoesOn)
{
    BaseWnd window;
    ASSERT_TRUE(window.create());
    NMHDR header = {nullptr, 5, TVN_SELCHANGEDW};
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 5, 0), TestWnd::classAnswer);
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)), TestWnd::classAnswer);
    EXPECT_EQ(window.m_header, nullptr);
    window.DestroyWindow();
}

TEST_F(MessageMapTest, whatIsNotHandledReachesTheFormerProcedure)
{
    BaseWnd window;
    ASSERT_TRUE(window.create());
    EXPECT_EQ(window.SendMessage(unhandledMessage, 1, 2), TestWnd::classAnswer);
    ASSERT_EQ(TestWnd::reachedClass().size(), 1U);
    EXPECT_EQ(TestWnd::reachedClass()[0].wParam, 1U);
    EXPECT_EQ(TestWnd::reachedClass()[0].lParam, 2);
    window.DestroyWindow();
}

TEST_F(MessageMapTest, defaultAfterNestedMessageSendsRightOne)
{
    BaseWnd window;
    ASSERT_TRUE(window.create());
    EXPECT_EQ(window.SendMessage(outerMessage, 1, 2), 66);
    ASSERT_EQ(TestWnd::reachedClass().size(), 2U);
    EXPECT_EQ(TestWnd::reachedClass()[0].message, nestedMessage);
    const MSG& second = TestWnd::reachedClass()[1];
    EXPECT_EQ(second.message, outerMessage);
    EXPECT_EQ(second.wParam, 1U);
    EXPECT_EQ(second.lParam, 2);
    EXPECT_EQ(window.m_defaultAnswer, TestWnd::classAnswer);
    EXPECT_EQ(window.m_currentAfterNested.hwnd, window.m_hWnd);
    EXPECT_EQ(window.m_currentAfterNested.message, outerMessage);
    window.DestroyWindow();
}

TEST_F(MessageMapTest, defaultAfterNestedThrowSendsRightMessage)
{
    AfxExceptionScope scope;
    BaseWnd window;
    ASSERT_TRUE(window.create());
    window.m_nestedThrows = true;
    EXPECT_EQ(window.SendMessage(outerMessage, 1, 2), 66);
    ASSERT_EQ(TestWnd::reachedClass().size(), 1U);
    EXPECT_EQ(TestWnd::reachedClass()[0].message, outerMessage);
    EXPECT_EQ(TestWnd::reachedClass()[0].wParam, 1U);
    EXPECT_TRUE(scope.hasException());
    EXPECT_THROW(scope.rethrow(), std::runtime_error);
    window.DestroyWindow();
}

TEST_F(MessageMapTest, theCurrentMessageIsPerWindowToo)
{
    BaseWnd first;
    BaseWnd second;
    ASSERT_TRUE(first.create());
    ASSERT_TRUE(second.create());
    class Forwarder : public BaseWnd
    {
    public:
        BaseWnd* m_other = nullptr;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == unhandledMessage)
                m_other->SendMessage(unhandledMessage + 1, 9, 9);
            return BaseWnd::WindowProc(message, wParam, lParam);
        }
    };
    Forwarder forwarder;
    forwarder.m_other = &second;
    ASSERT_TRUE(forwarder.create());
    forwarder.SendMessage(unhandledMessage, 1, 1);
    ASSERT_EQ(TestWnd::reachedClass().size(), 2U);
    EXPECT_EQ(TestWnd::reachedClass()[0].hwnd, second.m_hWnd);
    EXPECT_EQ(TestWnd::reachedClass()[1].hwnd, forwarder.m_hWnd);
    for (BaseWnd* window : {&first, &second, static_cast<BaseWnd*>(&forwarder)})
        window->DestroyWindow();
}

// Every stage may take a message for itself.
class StagesWnd : public BaseWnd
{
public:
    UINT m_takenByWindowProc = 0;
    int m_takenCommand = 0;
    bool m_takesNotifications = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == m_takenByWindowProc ? 1 : BaseWnd::WindowProc(message, wParam, lParam);
    }
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        return LOWORD(wParam) == m_takenCommand ? TRUE : BaseWnd::OnCommand(wParam, lParam);
    }
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        if (!m_takesNotifications)
            return BaseWnd::OnNotify(wParam, lParam, pResult);
        *pResult = 2;
        return TRUE;
    }
};

TEST_F(MessageMapTest, virtualFunctionsComeBeforeTheMap)
{
    StagesWnd window;
    ASSERT_TRUE(window.create());
    window.m_takenByWindowProc = outerMessage;
    window.m_takenCommand = 1;
    window.m_takesNotifications = true;
    EXPECT_EQ(window.SendMessage(outerMessage), 1);
    EXPECT_EQ(window.SendMessage(WM_COMMAND, 1), 1);
    EXPECT_EQ(window.SendMessage(WM_COMMAND, 2), 1);
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 0, 0), 2);
    EXPECT_EQ(window.m_log, "base-both ");
    EXPECT_TRUE(TestWnd::reachedClass().empty());
    window.DestroyWindow();
}
} // namespace
