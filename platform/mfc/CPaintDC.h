#pragma once

#include "mfc/CWnd.h"

// The device context of a WM_PAINT handler: begins painting, and ends it with the object.
class CPaintDC
{
public:
    explicit CPaintDC(const CWnd* pWnd) noexcept : m_hWnd(pWnd->m_hWnd) { m_hDC = ::BeginPaint(m_hWnd, &m_ps); }
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;
    ~CPaintDC() { ::EndPaint(m_hWnd, &m_ps); }

    operator HDC() const noexcept { return m_hDC; }
    HDC GetSafeHdc() const noexcept { return m_hDC; }

    BOOL DrawIcon(int x, int y, HICON icon) const { return ::DrawIcon(m_hDC, x, y, icon); }

    HDC m_hDC = nullptr;
    PAINTSTRUCT m_ps = {};

private:
    HWND m_hWnd;
};
