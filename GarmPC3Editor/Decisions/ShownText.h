#pragma once

#include "kernel/OdString.h"

// What controls show of texts that come from files.
//
// A control ends a text at its first NUL, and one that is given millions of characters takes minutes and a gigabyte. So
// no text of a configuration is handed to a control as it is: what cannot be shown becomes a visible sign, and what
// is too long to read is cut off and replaced by "...", as one character. What is stored stays whole.

// All in UTF-16 units, the sign of the cut included.
inline constexpr int longestShownLine = 1000;
inline constexpr int longestShownText = 100000;
// Of an edited text. The time that a line takes may grow with the square of its length: with Arabic letters under Wine
// 5000 take a fifth of a second, 40,000 a quarter of a minute.
inline constexpr int longestEditedLine = 5000;

// For labels, captions, list entries and fields of one line. Every control character is shown by its picture (U+2400 to
// U+241F and U+2421): a line break would hide what follows it.
OdString shownLine(OdStringView text);

// A text that a field of several lines shows and the user may edit. It stays what it was until the user changes what is
// shown; then it is what the field holds, signs included. Such a field keeps all characters but NUL, which is shown by
// its picture. A text that is cut, be it only for a long line, cannot be edited: a change would lose the rest.
class EditedText
{
public:
    EditedText() = default;
    explicit EditedText(const OdString& text);

    const OdString& whole() const noexcept { return m_whole; }
    const OdString& shown() const noexcept { return m_shown; }
    bool isCut() const noexcept { return m_isCut; }

    // Takes over what the field holds now.
    void takeFrom(const OdString& field);

private:
    OdString m_whole;
    OdString m_shown;
    bool m_isCut = false;
};
