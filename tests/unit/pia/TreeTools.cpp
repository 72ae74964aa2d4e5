#include "TreeTools.h"

#include <zlib.h>

#include <cstdio>

namespace
{
// Every code unit as four digits, except for common characters: even text that is not valid UTF-16 has a description.
std::string quoted(const OdString& text)
{
    std::string out = "'";
    for (const OdChar c : text.view())
    {
        const bool isUsual = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        if (isUsual)
        {
            out += static_cast<char>(c);
            continue;
        }
        char number[8];
        std::snprintf(number, sizeof number, "<%04X>", static_cast<unsigned>(c));
        out += number;
    }
    return out + "'";
}

template <class Value>
std::optional<Value> valueOf(const CPBlock& block, bool (CPBlock::*get)(Value&, OdStringView) const, OdStringView name,
                             const Value& poison)
{
    Value value = poison;
    const bool done = (block.*get)(value, name);
    return done || value != poison ? std::optional(value) : std::nullopt;
}

void describeChildren(const CPBlock& block, std::string& out)
{
    for (unsigned i = 0; i < block.size(); ++i)
    {
        const CPItem& item = *block.data(i);
        out += quoted(item.name());
        switch (item.type())
        {
        case CPItem::eBlock:
            out += " block (\n";
            describeChildren(static_cast<const CPBlock&>(item), out);
            out += ")\n";
            break;
        case CPItem::eBool:
            out += static_cast<const CPBool&>(item).value() ? " bool 1\n" : " bool 0\n";
            break;
        default:
            out += item.type() == CPItem::eStr ? " str " : item.type() == CPItem::eBin ? " bin " : " num ";
            out += quoted(static_cast<const CPText&>(item).text()) + "\n";
        }
    }
}
} // namespace

std::string plainFile(std::string_view text)
{
    return std::string(plainFirstLine).append(text);
}

std::string littleEndian(unsigned number)
{
    std::string out;
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>(static_cast<unsigned char>(number >> shift));
    return out;
}

std::string zlibStream(std::string_view text)
{
    uLongf size = compressBound(static_cast<uLong>(text.size()));
    std::string stream(size, '\0');
    compress(reinterpret_cast<Bytef*>(stream.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
             static_cast<uLong>(text.size()));
    stream.resize(size);
    return stream;
}

std::string compressedFile(std::string_view text)
{
    const std::string stream = zlibStream(text);
    const auto sum = adler32(1, reinterpret_cast<const Bytef*>(stream.data()), static_cast<uInt>(stream.size()));
    return std::string(compressedFirstLine) + "pmzlibcodec" + littleEndian(static_cast<unsigned>(sum)) +
           littleEndian(static_cast<unsigned>(text.size())) + littleEndian(static_cast<unsigned>(stream.size())) +
           stream;
}

std::optional<OdString> strOf(const CPBlock& block, OdStringView name)
{
    return valueOf(block, &CPBlock::getStr, name, OdString(OD_T("poison")));
}

std::optional<std::int32_t> intOf(const CPBlock& block, OdStringView name)
{
    return valueOf(block, &CPBlock::getInt, name, std::int32_t{-77});
}

std::optional<double> dblOf(const CPBlock& block, OdStringView name)
{
    return valueOf(block, &CPBlock::getDbl, name, -7.75);
}

std::optional<bool> boolOf(const CPBlock& block, OdStringView name)
{
    const auto value = valueOf(block, &CPBlock::getBool, name, false);
    return value ? value : valueOf(block, &CPBlock::getBool, name, true);
}

std::string describe(const CPBlock& block)
{
    std::string out;
    describeChildren(block, out);
    return out;
}

std::string describeFile(std::string_view file)
{
    CPIAParser parser;
    if (parser.parse(file))
        return describe(*parser.root());
    return std::string("refused: ") + parser.reason() + " (line " + std::to_string(parser.line()) + ")";
}
