#include "GarmPC3Editor/Decisions/ShownText.h"

#include <string>

namespace
{
constexpr OdChar firstPicture = 0x2400; // of NUL, followed by those of the other control characters
constexpr OdChar pictureOfDelete = 0x2421;
constexpr OdChar cutSign = 0x2026;

// At most longest units; never ends in half a surrogate pair unless the text itself does.
std::basic_string<OdChar> cut(OdStringView text, std::size_t longest)
{
    if (text.size() <= longest)
        return std::basic_string<OdChar>(text);
    std::size_t kept = longest - 1;
    const bool isInPair = (text[kept - 1] & 0xFC00) == 0xD800 && (text[kept] & 0xFC00) == 0xDC00;
    if (isInPair)
        --kept;
    return std::basic_string<OdChar>(text.substr(0, kept)) + cutSign;
}

// How much of a text a field shows for editing.
std::size_t editableLength(OdStringView text)
{
    std::size_t lineBegin = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (i == longestShownText)
            return i;
        if (text[i] == '\n')
            lineBegin = i + 1;
        else if (text[i] != '\r' && i - lineBegin == longestEditedLine)
            return i;
    }
    return text.size();
}
} // namespace

OdString shownLine(OdStringView text)
{
    std::basic_string<OdChar> shown = cut(text, longestShownLine);
    for (OdChar& c : shown)
        if (c < ' ')
            c = static_cast<OdChar>(firstPicture + c);
        else if (c == 0x7F)
            c = pictureOfDelete;
    return OdString(std::move(shown));
}

EditedText::EditedText(const OdString& text) : m_whole(text)
{
    const std::size_t length = editableLength(text.view());
    m_isCut = length < text.view().size();
    std::basic_string<OdChar> shown = cut(text.view(), length);
    for (OdChar& c : shown)
        if (c == 0)
            c = firstPicture;
    m_shown = OdString(std::move(shown));
}

void EditedText::takeFrom(const OdString& field)
{
    if (field == m_shown)
        return;
    m_whole = field;
    m_shown = field;
    m_isCut = false;
}
