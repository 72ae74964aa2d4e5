// The grammar of a PC3 text: one item, one block start or one block end per line.

#include "pia_tree/Limits.h"
#include "pia_tree/ParsedTree.h"
#include "pia_tree/Signature.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory_resource>

namespace pia
{
namespace
{
// What a byte means within a name.
enum class InName : unsigned char
{
    plain,
    encoded,   // may stand for something other than itself
    divider,   // =
    forbidden, // a raw brace or quote
    lineEnd,
};

consteval std::array<InName, 256> namesTable()
{
    std::array<InName, 256> table{};
    for (std::size_t c = 0x80; c < table.size(); ++c)
        table[c] = InName::encoded;
    table['\\'] = InName::encoded;
    table['='] = InName::divider;
    table['{'] = table['}'] = table['"'] = InName::forbidden;
    table['\n'] = InName::lineEnd;
    return table;
}

constexpr std::array<InName, 256> inName = namesTable();

InName classOf(char c) noexcept
{
    return inName[static_cast<unsigned char>(c)];
}

std::string_view between(const char* first, const char* last) noexcept
{
    return {first, static_cast<std::size_t>(last - first)};
}

std::string_view withoutTrailingBlanks(std::string_view text) noexcept
{
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}
} // namespace

class TextParser
{
public:
    TextParser(ParsedTree& tree, TextFailure& failure) : m_tree(tree), m_failure(failure)
    {
        m_text = tree.m_text.data();
        m_end = m_text + tree.m_text.size();
        // Every line has an end, even the last one.
        tree.m_text.data()[tree.m_text.size()] = '\n';
    }

    bool run()
    {
        // About as many as a typical configuration has, so that most are read without growing.
        constexpr std::size_t usualLine = 32;
        constexpr std::size_t usualItems = 256;
        m_tree.m_records.reserve(std::min(m_tree.m_text.size() / usualLine + 1, usualItems));

        for (const char* line = m_text; line < m_end;)
        {
            ++m_failure.line;
            line = readLine(line);
            if (!line)
                return false;
        }
        if (m_depth > 0)
            return fail("a block is not closed");
        m_tree.m_root = closeRange(0);
        m_failure.line = 0;
        return true;
    }

private:
    using Record = ParsedTree::Record;

    bool fail(const char* reason) noexcept
    {
        m_failure.reason = reason;
        return false;
    }

    // Returns the start of the next line; null after a failure.
    const char* readLine(const char* line)
    {
        const char* name = line;
        while (*name == ' ' || *name == '\t')
            ++name;

        bool isEncoded = false;
        const char* at = name;
        for (;; ++at)
        {
            while (classOf(*at) == InName::plain)
                ++at;
            if (classOf(*at) != InName::encoded)
                break;
            isEncoded = true;
        }

        const char* lineEnd = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(m_end - at) + 1));
        const char* contentEnd = lineEnd;
        // The sentinel is not a line end that a CR could belong to.
        if (lineEnd != m_end && lineEnd > name && lineEnd[-1] == '\r')
            --contentEnd;

        if (static_cast<std::size_t>(contentEnd - line) > maxLineBytes)
            return fail("a line is too long"), nullptr;
        const bool done = *at == '=' ? addValue(between(name, at), isEncoded, between(at + 1, contentEnd))
                                     : readBraces(between(name, contentEnd), isEncoded);
        return done ? lineEnd + 1 : nullptr;
    }

    // A line whose first divider, if any, comes after something that no name contains.
    bool readBraces(std::string_view line, bool isEncoded)
    {
        line = withoutTrailingBlanks(line);
        if (line.empty())
            return true;
        if (line == "}")
            return closeBlock();
        if (line.ends_with('{'))
        {
            line.remove_suffix(1);
            if (line.find_first_of("={}\"") == line.npos)
                return openBlock(withoutTrailingBlanks(line), isEncoded);
        }
        return fail("a line is neither an item nor the start or the end of a block");
    }

    bool addValue(std::string_view name, bool isEncoded, std::string_view value)
    {
        CPItem::EType kind = CPItem::eNum;
        if (value.starts_with('"') || value.starts_with('#'))
        {
            kind = value.front() == '#' ? CPItem::eBin : CPItem::eStr;
            value.remove_prefix(1);
        }
        else if (value == "TRUE" || value == "FALSE")
        {
            kind = CPItem::eBool;
            value = value == "TRUE" ? value : value.substr(0, 0);
        }
        return addRecord(withoutTrailingBlanks(name), isEncoded, kind, value);
    }

    bool addRecord(std::string_view name, bool isEncoded, CPItem::EType kind, std::string_view value)
    {
        if (m_items == maxItems)
            return fail("there are too many items");
        ++m_items;
        const std::uint32_t digest =
            isEncoded ? signature(OdStringView(decoded(name, m_tree.m_charset)), kind) : signature(name, kind);
        m_open.push_back(Record{digest, static_cast<std::uint32_t>(name.data() - m_text),
                                static_cast<std::uint32_t>(name.size()),
                                static_cast<std::uint32_t>(value.data() - m_text),
                                static_cast<std::uint32_t>(value.size()), kind, isEncoded});
        return true;
    }

    bool openBlock(std::string_view name, bool isEncoded)
    {
        if (m_depth == maxNesting)
            return fail("the blocks are nested too deeply");
        if (!addRecord(name, isEncoded, CPItem::eBlock, name))
            return false;
        m_firstChild[m_depth++] = m_open.size();
        return true;
    }

    bool closeBlock()
    {
        if (m_depth == 0)
            return fail("there is no block to close");
        const auto range = closeRange(m_firstChild[--m_depth]);
        m_open.back().value = range.first;
        m_open.back().valueLength = range.count;
        return true;
    }

    // Moves the children of the innermost block, which is complete, to their final place, one after the other.
    ParsedTree::Range closeRange(std::size_t firstChild)
    {
        auto& records = m_tree.m_records;
        const ParsedTree::Range range{static_cast<std::uint32_t>(records.size()),
                                      static_cast<std::uint32_t>(m_open.size() - firstChild)};
        const auto children = m_open.begin() + static_cast<std::ptrdiff_t>(firstChild);
        records.insert(records.end(), children, m_open.end());
        m_open.erase(children, m_open.end());
        return range;
    }

    ParsedTree& m_tree;
    TextFailure& m_failure;
    const char* m_text;
    const char* m_end;
    std::size_t m_items = 0;
    unsigned m_depth = 0;
    std::array<std::size_t, maxNesting> m_firstChild;
    // The items of the blocks that are still open; a typical configuration needs no extra memory for them.
    alignas(Record) std::array<std::byte, 8192> m_usualMemory;
    std::pmr::monotonic_buffer_resource m_memory{m_usualMemory.data(), m_usualMemory.size()};
    std::pmr::vector<Record> m_open{&m_memory};
};

std::shared_ptr<const ParsedTree> ParsedTree::parse(files::ByteBuffer text, TextFailure& failure)
{
    failure = {};
    if (text.size() > maxTextBytes)
    {
        failure.reason = "the text is too large";
        return nullptr;
    }
    const auto tree = std::make_shared<ParsedTree>();
    // An empty text may come without memory, but the sentinel needs some.
    text.reserve(1);
    tree->m_text = std::move(text);
    tree->m_charset = charsetOf(tree->m_text.view());
    return TextParser(*tree, failure).run() ? tree : nullptr;
}
} // namespace pia
