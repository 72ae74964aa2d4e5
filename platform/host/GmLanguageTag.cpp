#include "host/GmLanguageTag.h"

#include "files/FileChecks.h"
#include "host/CGarmPath.h"

#include <algorithm>

namespace
{
constexpr bool isLetter(OdChar c) noexcept
{
    return odFoldCase(c) >= 'a' && odFoldCase(c) <= 'z';
}

constexpr bool isLetterOrDigit(OdChar c) noexcept
{
    return isLetter(c) || (c >= '0' && c <= '9');
}

bool isTag(OdStringView tag) noexcept
{
    constexpr std::size_t longest = 35;
    if (tag.size() > longest)
        return false;
    for (std::size_t start = 0; start <= tag.size();)
    {
        const OdStringView part = tag.substr(start, tag.find('-', start) - start);
        if (part.empty() || part.size() > 8 || !std::ranges::all_of(part, isLetterOrDigit))
            return false;
        if (start == 0 && (part.size() < 2 || !std::ranges::all_of(part, isLetter)))
            return false;
        start += part.size() + 1;
    }
    return true;
}
} // namespace

std::optional<GmLanguageTag> GmLanguageTag::from(OdStringView text)
{
    return isTag(text) ? std::optional(GmLanguageTag(text)) : std::nullopt;
}

std::vector<OdString> GmLanguageTag::fallbacks() const
{
    std::vector<OdString> result;
    for (OdStringView tag = m_text.view(); !tag.empty();)
    {
        result.emplace_back(tag);
        const auto last = tag.rfind('-');
        tag = last == tag.npos ? OdStringView() : tag.substr(0, last);
        if (tag.size() >= 2 && tag[tag.size() - 2] == '-')
            tag.remove_suffix(2);
    }
    return result;
}

OdString findLanguageLibrary(const OdString& moduleFile, const GmLanguageTag& tag)
{
    const CGarmPath module(moduleFile);
    const OdString libraryName = module.name() + OD_T("Res.dll");
    for (const OdString& candidate : tag.fallbacks())
    {
        OdString library = CGarmPath::join(module.fullFolder() + candidate, libraryName);
        if (isRegularFile(library))
            return library;
    }
    return OdString();
}
