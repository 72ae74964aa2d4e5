#pragma once

#include "mfc/CCmdTarget.h"
#include "mfc/CString.h"

class CDataExchange;

// A window and its object. An object of its own is "permanent": it sees every message of its window from the first one
// on, and the thread's map finds it by the window's handle. Neither owns the other: the object is detached when the
// window is destroyed, and a window that outlives its object is destroyed with it.
//
// Members that only call the system have the system's names and meanings. All of them are for the window's own thread.
class CWnd : public CCmdTarget
{
public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;
    operator HWND() const noexcept { return m_hWnd; }

    // --- Window and object ---

    // The permanent object of a window of this thread, or null.
    static CWnd* FromHandlePermanent(HWND hWnd) noexcept;
    // The permanent object, otherwise a temporary one; null for null. A temporary object is valid until the end of the
    // thread's outermost message or modal loop in which it was asked for. It sees no messages.
    static CWnd* FromHandle(HWND hWnd);

    // Enters the window into the map without changing it. FALSE if the object already has a window, the window already
    // has an object, or hWnd is null.
    BOOL Attach(HWND hWnd);
    HWND Detach() noexcept;

    // Attaches the object and replaces the window procedure. FALSE as for Attach. The previous procedure gets what is
    // not handled.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT id, const CWnd* pParent);
    // Restores the window's procedure and detaches; returns the window.
    HWND UnsubclassWindow() noexcept;

    // Creates a window of any class. FALSE if the system refuses; rethrows what a handler threw meanwhile.
    BOOL CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y, int width,
                  int height, HWND parent, HMENU idOrMenu, void* param = nullptr);
    BOOL Create(LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect, CWnd* pParent, UINT id);
    // FALSE without a window.
    virtual BOOL DestroyWindow();

    // --- Messages ---

    virtual BOOL PreTranslateMessage(MSG* pMsg);
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // The message being handled on this thread by the innermost window procedure.
    static const MSG* GetCurrentMessage();
    // Offers a message to the objects of its window and of that window's parents, up to and including hWndStop. True if
    // one of them handled it.
    static bool WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);

    // --- Text, state, position ---

    void SetWindowText(LPCWSTR text) const;
    int GetWindowText(LPWSTR buffer, int size) const;
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;
    BOOL EnableWindow(BOOL enable = TRUE) const;
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int how) const;
    BOOL IsWindowVisible() const;
    BOOL IsIconic() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0) const;
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags = 0) const;
    HICON SetIcon(HICON icon, BOOL big) const;
    HICON GetIcon(BOOL big) const;
    CWnd* SetFocus() const;
    static CWnd* GetFocus();
    CWnd* SetActiveWindow() const;
    BOOL SetForegroundWindow() const;
    void GetClientRect(RECT* rect) const;
    void GetWindowRect(RECT* rect) const;
    void ScreenToClient(POINT* point) const;
    void ScreenToClient(RECT* rect) const;
    void ClientToScreen(POINT* point) const;
    void ClientToScreen(RECT* rect) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) const;
    void MoveWindow(const RECT& rect, BOOL repaint = TRUE) const;
    BOOL SetWindowPos(HWND insertAfter, int x, int y, int width, int height, UINT flags) const;
    void Invalidate(BOOL erase = TRUE) const;
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) const;
    void UpdateWindow() const;
    BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) const;
    // Centres the window in the given one, otherwise in its owner or parent, otherwise on the screen; it stays on that
    // window's screen.
    void CenterWindow(const CWnd* pAlternateOwner = nullptr) const;
    int MessageBox(LPCWSTR text, LPCWSTR caption, UINT type = MB_OK) const;

    // --- Relatives ---

    // The permanent object of the parent or owner; null if there is none, even if there is a window.
    CWnd* GetParent() const;
    // A temporary object if the window has no permanent one; null if there is no window.
    CWnd* GetDlgItem(int id) const;
    void GetDlgItem(int id, HWND* hWnd) const;
    CWnd* GetTopLevelParent() const;
    int GetDlgCtrlID() const;
    BOOL IsChild(const CWnd* pWnd) const;

    // --- Controls of a dialog ---

    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void SetDlgItemText(int id, LPCWSTR text) const;
    int GetDlgItemText(int id, LPWSTR buffer, int size) const;
    int GetDlgItemText(int id, CString& text) const;
    void CheckDlgButton(int id, UINT check) const;
    void CheckRadioButton(int first, int last, int checked) const;
    UINT IsDlgButtonChecked(int id) const;
    int GetCheckedRadioButton(int first, int last) const;

    // Moves values between the members and the controls: TRUE saves them from the controls, FALSE loads them. Returns
    // FALSE if a value cannot be saved; the user has then been told, and the control has the focus. Without a window it
    // does nothing and returns TRUE. While it runs, notifications of the controls are ignored.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

protected:
    // Says which value belongs to which control; see the DDX functions. The base has none.
    virtual void DoDataExchange(CDataExchange* pDX);

    // Every message comes here first; unhandled ones go to the window's previous procedure.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Looks up the message in the message map. FALSE if it is not handled.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // WM_COMMAND and WM_NOTIFY. FALSE if they are not handled.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // Passes the current message to the window's previous procedure.
    LRESULT Default();

    // The last call for a window: the object is already detached and may delete itself.
    virtual void PostNcDestroy();

    // All of these call Default().
    afx_msg void OnDestroy();
    afx_msg void OnPaint();
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* pScrollBar);
    afx_msg HCURSOR OnQueryDragIcon();

    DECLARE_MESSAGE_MAP()

private:
    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM);

    void onNcDestroy();

    WNDPROC m_pfnSuper = nullptr;
};

// The procedure of every window with a permanent object.
LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
