#include "mfc/CString.h"

#include "mfc/AfxModuleState.h"
#include "mfc/CInvalidArgException.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <ostream>

WCHAR CString::GetAt(int index) const
{
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return m_text.c_str()[index];
}

void CString::SetAt(int index, WCHAR c)
{
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    m_text[static_cast<std::size_t>(index)] = c;
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return Mid(GetLength() - std::clamp(count, 0, GetLength()));
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    const int from = std::clamp(first, 0, GetLength());
    const int length = std::clamp(count, 0, GetLength() - from);
    return CString(view().substr(static_cast<std::size_t>(from), static_cast<std::size_t>(length)));
}

int CString::Find(WCHAR c, int start) const noexcept
{
    const auto at = start < 0 ? m_text.npos : m_text.find(c, static_cast<std::size_t>(start));
    return at == m_text.npos ? -1 : static_cast<int>(at);
}

int CString::Find(LPCWSTR part, int start) const noexcept
{
    const auto at = start < 0 ? m_text.npos : m_text.find(odViewOrEmpty(part), static_cast<std::size_t>(start));
    return at == m_text.npos ? -1 : static_cast<int>(at);
}

int CString::ReverseFind(WCHAR c) const noexcept
{
    const auto at = m_text.rfind(c);
    return at == m_text.npos ? -1 : static_cast<int>(at);
}

int CString::CompareNoCase(LPCWSTR other) const noexcept
{
    const auto order = odCompareNoCase(view(), odViewOrEmpty(other));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

CString& CString::TrimLeft()
{
    m_text.erase(m_text.begin(), std::ranges::find_if(m_text, [](WCHAR c) { return !std::iswspace(c); }));
    return *this;
}

CString& CString::TrimRight()
{
    while (!m_text.empty() && std::iswspace(m_text.back()))
        m_text.pop_back();
    return *this;
}

int CString::Replace(WCHAR from, WCHAR to) noexcept
{
    const auto count = std::ranges::count(m_text, from);
    std::ranges::replace(m_text, from, to);
    return static_cast<int>(count);
}

void CString::FormatV(LPCWSTR format, va_list arguments)
{
    // The functions with an underscore are the system runtime's own. With this compiler, those without it take "%s" as
    // narrow text.
    va_list counted;
    va_copy(counted, arguments);
    const int length = format ? _vscwprintf(format, counted) : -1;
    va_end(counted);
    if (length < 0)
        AfxThrowInvalidArgException();
    // One unit more, so that the runtime has room for its terminator.
    std::wstring text(static_cast<std::size_t>(length) + 1, WCHAR());
    if (_vsnwprintf(text.data(), text.size(), format, arguments) != length)
        AfxThrowInvalidArgException();
    text.pop_back();
    m_text = std::move(text);
}

void CString::formatArguments(LPCWSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    try
    {
        FormatV(format, arguments);
    }
    catch (...)
    {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
}

CString CString::formatFromResource(UINT id)
{
    CString format;
    if (!format.LoadString(id))
        AfxThrowInvalidArgException();
    return format;
}

BOOL CString::LoadString(UINT id)
{
    return LoadString(AfxGetResourceHandle(), id);
}

BOOL CString::LoadString(HINSTANCE library, UINT id)
{
    // Without a buffer the call returns the address of the text inside the library, so no length is guessed.
    LPCWSTR text = nullptr;
    const int length = ::LoadStringW(library, id, reinterpret_cast<LPWSTR>(&text), 0);
    m_text = length > 0 ? OdStringView(text, static_cast<std::size_t>(length)) : OdStringView();
    return length > 0 ? TRUE : FALSE;
}

LPWSTR CString::GetBuffer(int minLength)
{
    const auto wanted = static_cast<std::size_t>(std::max(minLength, 0));
    if (wanted > m_text.size())
        m_text.resize(wanted);
    return m_text.data();
}

void CString::ReleaseBuffer(int newLength)
{
    const std::size_t length =
        newLength < 0 ? std::wcslen(m_text.c_str()) : std::min(m_text.size(), static_cast<std::size_t>(newLength));
    m_text.resize(length);
}

std::ostream& operator<<(std::ostream& out, const CString& text)
{
    return out << '"' << odToUtf8(text.view()) << '"';
}
