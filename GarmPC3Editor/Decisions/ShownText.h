#pragma once

#include "kernel/OdString.h"

// What controls show of texts that come from files.
//
// A control ends a text at its first NUL, and one with millions of characters takes minutes and a gigabyte of memory.
// So no text of a configuration is passed to a control as it is: characters that cannot be shown become visible
// symbols, and what is too long to read is cut off and replaced by one "..." character. The stored text stays whole.

// All in UTF-16 units, including the "..." character.
inline constexpr int longestShownLine = 1000;
inline constexpr int longestShownText = 100000;
// For an edited text. The time to draw a line may grow with the square of its length: under Wine, 5,000 Arabic letters
// take a fifth of a second, 40,000 take 15 seconds.
inline constexpr int longestEditedLine = 5000;

// For labels, captions, list entries and fields of one line. Each control character is shown as its symbol (U+2400 to
// U+241F and U+2421): a line break would hide what follows it.
OdString shownLine(OdStringView text);

// A text in a multi-line field that the user may edit. It is unchanged until the user edits what is shown; then it is
// the content of the field, symbols included. Such a field keeps all characters but NUL, which is shown as its symbol.
// A text that is cut, even if only one line is too long, cannot be edited: a change would lose the rest.
class EditedText
{
public:
    EditedText() = default;
    explicit EditedText(const OdString& text);

    const OdString& whole() const noexcept { return m_whole; }
    const OdString& shown() const noexcept { return m_shown; }
    bool isCut() const noexcept { return m_isCut; }

    // Stores what the field contains now.
    void takeFrom(const OdString& field);

private:
    OdString m_whole;
    OdString m_shown;
    bool m_isCut = false;
};
