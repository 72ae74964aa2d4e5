#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <compare>
#include <cstdarg>
#include <iosfwd>
#include <string>
#include <utility>

// Text of windows and dialogs: UTF-16, a value type. Converts from and to the kernel's OdString.
class CString
{
public:
    CString() = default;
    CString(LPCWSTR text) : m_text(odViewOrEmpty(text)) {} // null is ""
    CString(LPCWSTR text, int length) : m_text(text, static_cast<std::size_t>(length)) {}
    explicit CString(WCHAR c, int count = 1) : m_text(count > 0 ? static_cast<std::size_t>(count) : 0, c) {}
    CString(const OdString& text) : m_text(text.view()) {}
    explicit CString(OdStringView text) : m_text(text) {}

    CString& operator=(LPCWSTR text)
    {
        m_text = odViewOrEmpty(text);
        return *this;
    }

    // Code that takes a pointer, such as the system, stops at the first NUL.
    operator LPCWSTR() const noexcept { return m_text.c_str(); }
    LPCWSTR GetString() const noexcept { return m_text.c_str(); }
    OdStringView view() const noexcept { return m_text; }
    OdString toOdString() const { return OdString(view()); }

    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const noexcept { return m_text.empty(); }
    void Empty() noexcept { m_text.clear(); }

    // The terminator counts as part of the text. Any other index outside the text throws the invalid-argument
    // exception.
    WCHAR GetAt(int index) const;
    WCHAR operator[](int index) const { return GetAt(index); }
    // An index outside the text throws the invalid-argument exception.
    void SetAt(int index, WCHAR c);

    // Parts of the text; counts and positions outside it are clamped.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // Position at or after start; -1 if there is none or start is outside the text.
    int Find(WCHAR c, int start = 0) const noexcept;
    int Find(LPCWSTR part, int start = 0) const noexcept;
    int ReverseFind(WCHAR c) const noexcept;

    // Negative, 0 or positive. CompareNoCase folds only A to Z, like everything in this product.
    int Compare(LPCWSTR other) const noexcept { return view().compare(odViewOrEmpty(other)); }
    int CompareNoCase(LPCWSTR other) const noexcept;

    // Remove white space as defined by iswspace.
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& TrimLeft();
    CString& TrimRight();

    // Returns the number of replaced units.
    int Replace(WCHAR from, WCHAR to) noexcept;

    // Like printf with wide meanings: "%s" and "%c" take wide text, "%S" and "%hs" narrow text. An argument may be a
    // CString. A format that the runtime refuses throws the invalid-argument exception and changes nothing; so does the
    // second form if the current resource library has no such string.
    template <class... Arguments>
    void Format(LPCWSTR format, Arguments... arguments)
    {
        formatArguments(format, formatArgument(arguments)...);
    }
    template <class... Arguments>
    void Format(UINT formatId, Arguments... arguments)
    {
        formatArguments(formatFromResource(formatId), formatArgument(arguments)...);
    }
    template <class... Arguments>
    void AppendFormat(LPCWSTR format, Arguments... arguments)
    {
        CString added;
        added.Format(format, arguments...);
        *this += added;
    }
    void FormatV(LPCWSTR format, va_list arguments);

    // Loads a string resource from the given library, by default from the current resource handle. FALSE if there is
    // none or it is empty; the text is then empty.
    BOOL LoadString(UINT id);
    BOOL LoadString(HINSTANCE library, UINT id);

    // A buffer for at least minLength units and a terminator, valid until the next change. ReleaseBuffer ends the text
    // at newLength, by default at the first NUL.
    LPWSTR GetBuffer(int minLength);
    void ReleaseBuffer(int newLength = -1);

    CString& operator+=(LPCWSTR text)
    {
        m_text += odViewOrEmpty(text);
        return *this;
    }
    CString& operator+=(const CString& text)
    {
        m_text += text.m_text;
        return *this;
    }
    CString& operator+=(WCHAR c)
    {
        m_text += c;
        return *this;
    }

    friend CString operator+(CString a, const CString& b) { return std::move(a += b); }
    friend CString operator+(CString a, LPCWSTR b) { return std::move(a += b); }
    friend CString operator+(CString a, WCHAR b) { return std::move(a += b); }
    friend CString operator+(LPCWSTR a, const CString& b) { return CString(a) += b; }

    friend bool operator==(const CString& a, const CString& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, LPCWSTR b) noexcept { return a.view() == odViewOrEmpty(b); }
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept
    {
        return a.m_text <=> b.m_text;
    }

private:
    static LPCWSTR formatArgument(const CString& text) noexcept { return text; }
    template <class Argument>
    static Argument formatArgument(const Argument& argument) noexcept
    {
        return argument;
    }
    static CString formatFromResource(UINT id);
    void formatArguments(LPCWSTR format, ...);

    std::wstring m_text;
};

// As UTF-8; this is how a failed test shows a text.
std::ostream& operator<<(std::ostream& out, const CString& text);
