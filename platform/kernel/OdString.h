#pragma once

#include "kernel/OdText.h"

#include <functional>
#include <iosfwd>
#include <utility>

// The kernel's text: UTF-16, may contain NULs. A value type.
class OdString
{
public:
    OdString() = default;
    OdString(const OdChar* text) : m_text(odViewOrEmpty(text)) {} // null is ""
    OdString(const OdChar* text, int length) : m_text(text, static_cast<std::size_t>(length)) {}
    explicit OdString(OdStringView text) : m_text(text) {}
    explicit OdString(std::basic_string<OdChar>&& text) noexcept : m_text(std::move(text)) {}

    OdString& operator=(const OdChar* text)
    {
        m_text = odViewOrEmpty(text);
        return *this;
    }
    OdString& operator=(OdStringView text)
    {
        m_text = text;
        return *this;
    }

    const OdChar* c_str() const noexcept { return m_text.c_str(); }
    OdStringView view() const noexcept { return m_text; }
    operator OdStringView() const noexcept { return m_text; }

    int getLength() const noexcept { return static_cast<int>(m_text.size()); }
    bool isEmpty() const noexcept { return m_text.empty(); }
    void empty() noexcept { m_text.clear(); }

    // An index outside the text returns NUL.
    OdChar getAt(int index) const noexcept
    {
        return index >= 0 && index < getLength() ? m_text[static_cast<std::size_t>(index)] : OdChar();
    }

    // Parts of the text; counts and positions outside it are clamped.
    OdString left(int count) const;
    OdString right(int count) const;
    OdString mid(int first) const;
    OdString mid(int first, int count) const;

    // Position of the first (last) such unit, or -1.
    int find(OdChar c) const noexcept;
    int reverseFind(OdChar c) const noexcept;

    // Negative, 0 or positive; iCompare folds A to Z only.
    int compare(OdStringView other) const noexcept { return view().compare(other); }
    int iCompare(OdStringView other) const noexcept;

    OdString& operator+=(OdStringView text)
    {
        m_text += text;
        return *this;
    }
    OdString& operator+=(const OdChar* text) { return *this += odViewOrEmpty(text); }
    OdString& operator+=(OdChar c)
    {
        m_text += c;
        return *this;
    }

    friend OdString operator+(OdString a, OdStringView b) { return std::move(a += b); }
    friend OdString operator+(OdString a, const OdChar* b) { return std::move(a += b); }
    friend OdString operator+(OdString a, const OdString& b) { return std::move(a += b.view()); }
    friend OdString operator+(const OdChar* a, const OdString& b) { return OdString(a) + b; }

    friend bool operator==(const OdString& a, const OdString& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(const OdString& a, const OdChar* b) noexcept { return a.view() == odViewOrEmpty(b); }
    friend bool operator==(const OdString& a, OdStringView b) noexcept { return a.view() == b; }
    friend auto operator<=>(const OdString& a, const OdString& b) noexcept { return a.m_text <=> b.m_text; }

private:
    std::basic_string<OdChar> m_text;
};

// As UTF-8; this is how a failed test shows a text.
std::ostream& operator<<(std::ostream& out, const OdString& text);

template <>
struct std::hash<OdString>
{
    std::size_t operator()(const OdString& text) const noexcept { return std::hash<OdStringView>()(text.view()); }
};
