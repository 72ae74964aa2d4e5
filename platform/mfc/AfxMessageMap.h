#pragma once

#include "win32/Win32.h"

#include <commctrl.h>

class CCmdTarget;
class CScrollBar;

// Runs one handler of an object. For WM_NOTIFY, lParam is the NMHDR. The handler's result goes into result.
using AFX_MSG_CALLER = void (*)(CCmdTarget& target, WPARAM wParam, LPARAM lParam, LRESULT& result);

// One line of a message map. nCode is the notification's code; nID to nLastID are the controls or commands. Both are 0
// for other messages.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    AFX_MSG_CALLER pfn; // null ends the map
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// The window's object as a scroll bar; null for other kinds of control, including sliders.
CScrollBar* AfxScrollBarFromHandle(HWND hWnd);

// The class that a handler belongs to.
template <class Handler>
struct AfxHandlerTraits;
template <class Result, class Class, class... Arguments>
struct AfxHandlerTraits<Result (Class::*)(Arguments...)>
{
    using Target = Class;
};
template <auto handler>
using AfxHandlerTarget = typename AfxHandlerTraits<decltype(handler)>::Target;

// One caller per handler signature; a handler with any other signature does not compile.

template <auto handler> // void OnCommand()
void AfxCallCommand(CCmdTarget& target, WPARAM, LPARAM, LRESULT&)
{
    (static_cast<AfxHandlerTarget<handler>&>(target).*handler)();
}

template <auto handler> // void OnNotification(NMHDR* header, LRESULT* result)
void AfxCallNotify(CCmdTarget& target, WPARAM, LPARAM lParam, LRESULT& result)
{
    (static_cast<AfxHandlerTarget<handler>&>(target).*handler)(reinterpret_cast<NMHDR*>(lParam), &result);
}

template <auto handler> // LRESULT OnMessage(WPARAM, LPARAM)
void AfxCallMessage(CCmdTarget& target, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    result = (static_cast<AfxHandlerTarget<handler>&>(target).*handler)(wParam, lParam);
}

template <auto handler> // void OnHScroll(UINT code, UINT position, CScrollBar* control)
void AfxCallScroll(CCmdTarget& target, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    (static_cast<AfxHandlerTarget<handler>&>(target).*handler)(LOWORD(wParam), HIWORD(wParam),
                                                               AfxScrollBarFromHandle(reinterpret_cast<HWND>(lParam)));
}

template <auto handler> // HCURSOR OnQueryDragIcon()
void AfxCallQueryHandle(CCmdTarget& target, WPARAM, LPARAM, LRESULT& result)
{
    result = reinterpret_cast<LRESULT>((static_cast<AfxHandlerTarget<handler>&>(target).*handler)());
}

// Marks a handler in its class.
#define afx_msg

// Inside the class: declares a message map. What follows is protected.
#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    const AFX_MSGMAP* GetMessageMap() const override;

// In the source file: the map itself, one line per handler.
//
//     BEGIN_MESSAGE_MAP(CMyDlg, CDialog)
//         ON_BN_CLICKED(IDC_FIND, &CMyDlg::OnFind)
//         ON_WM_DESTROY()
//     END_MESSAGE_MAP()
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const                                                                  \
    {                                                                                                                  \
        return GetThisMessageMap();                                                                                    \
    }                                                                                                                  \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                                    \
    {                                                                                                                  \
        using ThisClass [[maybe_unused]] = theClass;                                                                   \
        using TheBaseClass = baseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                              \
    {                                                                                                                  \
        0, 0, 0, 0, nullptr                                                                                            \
    }                                                                                                                  \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, entries};                                  \
    return &messageMap;                                                                                                \
    }

// A menu command has no code, and neither has the click on a button: both are CN_COMMAND.
constexpr UINT CN_COMMAND = 0;

#define ON_CONTROL(code, id, handler)                                                                                  \
    {WM_COMMAND, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(id), &AfxCallCommand<handler>},
#define ON_COMMAND(id, handler) ON_CONTROL(CN_COMMAND, id, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_CBN_SELCHANGE(id, handler) ON_CONTROL(CBN_SELCHANGE, id, handler)
#define ON_EN_CHANGE(id, handler) ON_CONTROL(EN_CHANGE, id, handler)
#define ON_NOTIFY(code, id, handler)                                                                                   \
    {WM_NOTIFY, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(id), &AfxCallNotify<handler>},
#define ON_MESSAGE(message, handler) {message, 0, 0, 0, &AfxCallMessage<handler>},

// These determine the handler's name themselves.
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, 0, &AfxCallCommand<&ThisClass::OnDestroy>},
#define ON_WM_PAINT() {WM_PAINT, 0, 0, 0, &AfxCallCommand<&ThisClass::OnPaint>},
#define ON_WM_HSCROLL() {WM_HSCROLL, 0, 0, 0, &AfxCallScroll<&ThisClass::OnHScroll>},
#define ON_WM_QUERYDRAGICON() {WM_QUERYDRAGICON, 0, 0, 0, &AfxCallQueryHandle<&ThisClass::OnQueryDragIcon>},
