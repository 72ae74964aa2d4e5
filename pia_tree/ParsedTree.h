#pragma once

#include "files/ByteBuffer.h"
#include "pia_tree/CPItem.h"
#include "pia_tree/Characters.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace pia
{
// Why and where a text is invalid. An empty reason means that it is valid.
struct TextFailure
{
    const char* reason = "";
    unsigned line = 0;
};

// A parsed text: the text itself and one record per item that says where its parts are. Nothing is decoded and no item
// is created until it is asked for, because a configuration is usually read once, key by key.
//
// Immutable once it is created; the blocks that show it share it.
class ParsedTree : public std::enable_shared_from_this<ParsedTree>
{
public:
    // The children of a block are consecutive records.
    struct Range
    {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
    };

    static constexpr std::uint32_t none = ~std::uint32_t{0};

    // Returns null and fills failure if the text breaks the grammar or a limit.
    static std::shared_ptr<const ParsedTree> parse(files::ByteBuffer text, TextFailure& failure);

    Range root() const noexcept { return m_root; }

    // The position in the range of the first item with this name and kind, or none.
    std::uint32_t find(Range range, OdStringView name, CPItem::EType kind) const;

    // These take the number of a record; those for values require a record of that kind.
    CPItem::EType kind(std::uint32_t record) const noexcept { return m_records[record].kind; }
    OdString name(std::uint32_t record) const;
    OdString text(std::uint32_t record) const;
    bool flag(std::uint32_t record) const noexcept;
    bool number(std::uint32_t record, std::int32_t& out) const;
    bool number(std::uint32_t record, double& out) const;

    // A new item; a block shows its children in this tree.
    OdSharedPtr<CPItem> makeItem(std::uint32_t record) const;

private:
    friend class TextParser;

    struct Record
    {
        std::uint32_t signature; // of name and kind: differs in nearly every other item
        std::uint32_t name;
        std::uint32_t nameLength;
        // A block stores the range of its children here; a bool stores its value in the second number.
        std::uint32_t value;
        std::uint32_t valueLength;
        CPItem::EType kind : 8;
        bool isNameEncoded : 8; // the name differs from its raw bytes
    };

    std::string_view rawName(const Record& record) const noexcept
    {
        return m_text.view().substr(record.name, record.nameLength);
    }
    std::string_view rawValue(const Record& record) const noexcept
    {
        return m_text.view().substr(record.value, record.valueLength);
    }
    bool hasName(const Record& record, OdStringView name) const;
    template <class Number>
    bool readNumberOf(const Record& record, Number& out) const;

    files::ByteBuffer m_text;
    Charset m_charset = Charset::ascii;
    std::vector<Record> m_records;
    Range m_root;
};
} // namespace pia
