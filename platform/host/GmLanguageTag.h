#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <vector>

// A language tag such as "en", "de-AT" or "zh-Hant-TW": parts of 1 to 8 ASCII letters and digits with "-" between them,
// the first one of 2 letters or more, 35 units at most. Tags name folders, so no other text ever reaches the file
// system; that is checked once, when the tag is made.
class GmLanguageTag
{
public:
    // None for a text that is not a language tag.
    static std::optional<GmLanguageTag> from(OdStringView text);

    const OdString& text() const noexcept { return m_text; }

    // The tag and its more general ones, the best first: "de-AT" gives "de-AT", "de". A part of one unit goes together
    // with the one after it.
    std::vector<OdString> fallbacks() const;

private:
    explicit GmLanguageTag(OdStringView text) : m_text(text) {}

    OdString m_text;
};

// Full path of the language library of a module: folder TAG beside the module's file, for the first tag of the
// fallbacks that has one; in it the module's name without extension followed by "Res.dll". Empty when there is none.
// Throws nothing but std::bad_alloc.
OdString findLanguageLibrary(const OdString& moduleFile, const GmLanguageTag& tag);
