#include "mfc/Ddx.h"

#include "mfc/AfxRes.h"
#include "mfc/CInvalidArgException.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace
{
CString textOf(HWND hWnd)
{
    CString text;
    const int length = ::GetWindowTextLengthW(hWnd);
    const int copied = ::GetWindowTextW(hWnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer(copied);
    return text;
}

void setTextIfChanged(HWND hWnd, const CString& text)
{
    if (textOf(hWnd) != text)
        ::SetWindowTextW(hWnd, text);
}

CString userDecimalSign()
{
    WCHAR sign[8] = {};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign, 8);
    return sign;
}

std::optional<double> numberIn(CString text)
{
    text.Trim();
    const CString sign = userDecimalSign();
    if (const int at = sign.IsEmpty() ? -1 : text.Find(sign); at >= 0)
        text = text.Left(at) + L"." + text.Mid(at + sign.GetLength());
    if (text.GetAt(0) == L'+' && text.GetAt(1) != L'-')
        text = text.Mid(1);

    // Anything that is not ASCII cannot be part of a number.
    std::string narrow;
    for (const WCHAR c : text.view())
        narrow += c < 0x80 ? static_cast<char>(c) : '?';
    double number = 0;
    const auto [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), number);
    const bool isWhole = error == std::errc() && end == narrow.data() + narrow.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

CString textFor(double number)
{
    char buffer[32] = {};
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::general, 15);
    return CString(OdStringView(std::wstring(buffer, result.ptr)));
}

[[noreturn]] void failWithStandardMessage(CDataExchange& exchange)
{
    CString text;
    if (!text.LoadString(AFX_IDP_PARSE_REAL))
        text = L"Please enter a number.";
    const HWND owner = ::GetAncestor(exchange.m_pDlgWnd->m_hWnd, GA_ROOT);
    ::MessageBoxW(owner, text, textOf(owner), MB_OK | MB_ICONEXCLAMATION);
    exchange.Fail();
}
} // namespace

void DDX_Control(CDataExchange* pDX, int id, CWnd& control)
{
    if (control.m_hWnd)
        return;
    if (!control.SubclassWindow(pDX->PrepareCtrl(id)))
        AfxThrowInvalidArgException();
}

void DDX_Text(CDataExchange* pDX, int id, CString& value)
{
    const HWND control = pDX->PrepareEditCtrl(id);
    if (pDX->m_bSaveAndValidate)
        value = textOf(control);
    else
        setTextIfChanged(control, value);
}

void DDX_Text(CDataExchange* pDX, int id, double& value)
{
    const HWND control = pDX->PrepareEditCtrl(id);
    if (!pDX->m_bSaveAndValidate)
    {
        setTextIfChanged(control, textFor(value));
        return;
    }
    const std::optional<double> number = numberIn(textOf(control));
    if (!number)
        failWithStandardMessage(*pDX);
    value = *number;
}

void DDX_CBIndex(CDataExchange* pDX, int id, int& index)
{
    const HWND control = pDX->PrepareCtrl(id);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
    else
        ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void DDX_Radio(CDataExchange* pDX, int id, int& value)
{
    HWND control = pDX->PrepareCtrl(id);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    int number = 0;
    do
    {
        // The group may contain other controls, such as labels.
        if (::SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON)
        {
            if (!pDX->m_bSaveAndValidate)
                ::SendMessageW(control, BM_SETCHECK, value == number ? BST_CHECKED : BST_UNCHECKED, 0);
            else if (::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED)
                value = number;
            ++number;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control && !(::GetWindowLongW(control, GWL_STYLE) & WS_GROUP));
}
