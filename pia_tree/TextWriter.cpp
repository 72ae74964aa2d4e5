#include "pia_tree/TextWriter.h"

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPValue.h"
#include "pia_tree/Characters.h"
#include "pia_tree/Limits.h"

#include <cstdint>

namespace pia
{
namespace
{
// Whether a unit may need an escape; the others need none except at an end. Bitwise and in the units' own width, so
// that the compiler tests many at once: private driver data is one very long value.
constexpr std::uint16_t isSpecialInValue(std::uint16_t c) noexcept
{
    const auto fromBlank = static_cast<std::uint16_t>(c - 0x20);
    return static_cast<std::uint16_t>((fromBlank > 0x7E - 0x20) | (c == '\\'));
}

// The units that are part of the grammar only in names.
constexpr std::uint16_t isGrammarInName(std::uint16_t c) noexcept
{
    return static_cast<std::uint16_t>((c == '=') | (c == '{') | (c == '}') | (c == '"'));
}

constexpr std::uint16_t isSpecialInName(std::uint16_t c) noexcept
{
    return isSpecialInValue(c) | isGrammarInName(c);
}

template <std::uint16_t (*isSpecial)(std::uint16_t)>
bool hasSpecial(OdStringView text) noexcept
{
    std::uint16_t any = 0;
    for (const OdChar c : text)
        any = static_cast<std::uint16_t>(any | isSpecial(static_cast<std::uint16_t>(c)));
    return any != 0;
}

// A backslash needs an escape only where an escape would be read; names of printers and paths are full of other
// backslashes.
bool isEscapedAnywhere(OdStringView text, std::size_t at) noexcept
{
    const OdChar c = text[at];
    return c < 0x20 || c > 0x7E || (c == '\\' && escapeAtFront(text.substr(at)) >= 0);
}

class TextWriter
{
public:
    explicit TextWriter(files::ByteBuffer& out) : m_out(out) {}

    const char* writeChildren(const CPBlock& block)
    {
        const unsigned count = block.size();
        for (unsigned i = 0; i < count; ++i)
        {
            if (++m_items > maxItems)
                return "there are too many items";
            if (const char* reason = writeItem(*block.data(i)))
                return reason;
        }
        return nullptr;
    }

private:
    const char* writeItem(const CPItem& item)
    {
        startLine();
        putName(item.name());
        switch (item.type())
        {
        case CPItem::eBlock:
            return writeBlock(static_cast<const CPBlock&>(item));
        case CPItem::eBool:
            put(static_cast<const CPBool&>(item).value() ? "=TRUE" : "=FALSE");
            return endLine();
        case CPItem::eStr:
            put("=\"");
            putValue(static_cast<const CPStr&>(item).text());
            return endLine();
        case CPItem::eBin:
            put("=#");
            putValue(static_cast<const CPBin&>(item).text());
            return endLine();
        case CPItem::eNum:
            put("=");
            putNumber(static_cast<const CPNum&>(item).text());
            return endLine();
        }
        return "an item is of an unknown kind";
    }

    const char* writeBlock(const CPBlock& block)
    {
        put("{");
        if (const char* reason = endLine())
            return reason;
        if (m_depth == maxNesting)
            return "the blocks are nested too deeply";
        ++m_depth;
        if (const char* reason = writeChildren(block))
            return reason;
        --m_depth;
        startLine();
        put("}");
        return endLine();
    }

    void putName(OdStringView name)
    {
        if (!hasSpecial<isSpecialInName>(name) && !name.starts_with(' ') && !name.ends_with(' '))
        {
            putPlain(name);
            return;
        }
        const auto first = std::min(name.find_first_not_of(OdChar(' ')), name.size());
        const auto last =
            name.find_last_not_of(OdChar(' ')); // in a name of nothing but spaces all of them are leading ones
        for (std::size_t i = 0; i < name.size(); ++i)
        {
            const bool isAtAnEnd = i < first || i > last;
            putUnit(name[i], isAtAnEnd || isGrammarInName(name[i]) || isEscapedAnywhere(name, i));
        }
    }

    void putNumber(OdStringView text)
    {
        // A number may have any text; this one would be read as another kind, or lose its start.
        const bool looksOtherwise = text == OD_T("TRUE") || text == OD_T("FALSE") || text.starts_with('"') ||
                                    text.starts_with('#') || text.starts_with(' ');
        if (looksOtherwise)
        {
            putUnit(text.front(), true);
            text.remove_prefix(1);
        }
        putValue(text);
    }

    void putValue(OdStringView text)
    {
        // Text editors strip a space at the end of a line, and some real paper names end in one.
        const bool endsInBlank = text.ends_with(' ');
        if (endsInBlank)
            text.remove_suffix(1);
        if (!hasSpecial<isSpecialInValue>(text))
            putPlain(text);
        else
            for (std::size_t i = 0; i < text.size(); ++i)
                putUnit(text[i], isEscapedAnywhere(text, i));
        if (endsInBlank)
            putUnit(' ', true);
    }

    void putUnit(OdChar unit, bool asEscape)
    {
        if (!asEscape)
        {
            *room(1) = static_cast<char>(unit);
            return;
        }
        const char escape[] = {'\\',
                               'U',
                               '+',
                               odHexDigits[unit >> 12 & 0xF],
                               odHexDigits[unit >> 8 & 0xF],
                               odHexDigits[unit >> 4 & 0xF],
                               odHexDigits[unit & 0xF]};
        static_assert(sizeof escape == escapeLength);
        put({escape, escapeLength});
    }

    void putPlain(OdStringView text)
    {
        char* out = room(text.size());
        for (std::size_t i = 0; i < text.size(); ++i)
            out[i] = static_cast<char>(text[i]);
    }

    void put(std::string_view text) { text.copy(room(text.size()), text.npos); }

    void startLine()
    {
        m_lineStart = m_out.size();
        std::memset(room(m_depth), ' ', m_depth);
    }

    const char* endLine()
    {
        if (m_out.size() - m_lineStart > maxLineBytes)
            return "a line would be too long";
        *room(1) = '\n';
        return m_out.size() > maxTextBytes ? "the text would be too large" : nullptr;
    }

    // Where the next bytes go, which then become part of the text.
    char* room(std::size_t count)
    {
        m_out.reserveMore(count);
        char* result = m_out.data() + m_out.size();
        m_out.setSize(m_out.size() + count);
        return result;
    }

    files::ByteBuffer& m_out;
    std::size_t m_lineStart = 0;
    std::size_t m_items = 0;
    unsigned m_depth = 0;
};
} // namespace

const char* writeText(const CPBlock& root, files::ByteBuffer& text)
{
    if (!root.name().isEmpty())
        return "the root block has a name, which a file cannot store";
    constexpr std::size_t usualText = 8192;
    text = files::ByteBuffer(usualText);
    return TextWriter(text).writeChildren(root);
}
} // namespace pia
