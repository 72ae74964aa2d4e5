#include "kernel/OdString.h"

#include <algorithm>
#include <ostream>

OdString OdString::left(int count) const
{
    return mid(0, count);
}

OdString OdString::right(int count) const
{
    return mid(getLength() - std::clamp(count, 0, getLength()));
}

OdString OdString::mid(int first) const
{
    return mid(first, getLength());
}

OdString OdString::mid(int first, int count) const
{
    const int from = std::clamp(first, 0, getLength());
    const int length = std::clamp(count, 0, getLength() - from);
    return OdString(view().substr(static_cast<std::size_t>(from), static_cast<std::size_t>(length)));
}

int OdString::find(OdChar c) const noexcept
{
    const auto at = m_text.find(c);
    return at == m_text.npos ? -1 : static_cast<int>(at);
}

int OdString::reverseFind(OdChar c) const noexcept
{
    const auto at = m_text.rfind(c);
    return at == m_text.npos ? -1 : static_cast<int>(at);
}

int OdString::iCompare(OdStringView other) const noexcept
{
    const auto order = odCompareNoCase(view(), other);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

std::ostream& operator<<(std::ostream& out, const OdString& text)
{
    return out << '"' << odToUtf8(text.view()) << '"';
}
