#pragma once

// The same configuration from other formats: every peer fills the same members, by the same keys in the same order, in
// the way its library is meant to be used.

#include "GarmPC3Editor/Model/FieldVisitor.h"
#include "bench/Samples.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

namespace peers
{
// UTF-8 as the members hold it; nearly always ASCII, as it is for us.
inline OdString wide(std::string_view text)
{
    unsigned char all = 0;
    for (const char c : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return OdString(all < 0x80 ? std::basic_string<OdChar>(text.begin(), text.end()) : odFromUtf8(text));
}

template <class Number>
bool numberFrom(std::string_view text, Number& out)
{
    return std::from_chars(text.data(), text.data() + text.size(), out).ec == std::errc();
}

// Every key and block name of a configuration in the order of the walk, in the characters of the other formats.
class KeyList : public FieldVisitor
{
public:
    static const std::vector<std::string>& keys()
    {
        static const std::vector<std::string> made = []
        {
            GmPlotCfg3 configuration;
            configuration.m_media.m_destination = new GmDestinationNode;
            configuration.m_custom = new GmCustomNode;
            KeyList list;
            forEachField(configuration, list);
            return list.m_keys;
        }();
        return made;
    }

    void field(const Field& field) override { m_keys.push_back(odToUtf8(field.key)); }
    bool beginBlock(const FieldBlock& block) override
    {
        m_keys.push_back(odToUtf8(block.key));
        return true;
    }
    void endBlock() override {}
    void customItems(GmCustomNode&) override {}

private:
    std::vector<std::string> m_keys;
};

// Fills the members from a source: get(key, out) for each kind of member, get(key, Source&) for a block, and
// readCustom(GmCustomNode&). The samples have every block.
template <class Source>
class Reader : public FieldVisitor
{
public:
    explicit Reader(Source source) { m_blocks[0] = source; }

    bool isGood() const { return m_good; }

    void field(const Field& field) override
    {
        const std::string& key = m_keys[m_next++];
        if (m_good)
            m_good = std::visit([&](auto* member) { return take(key, *member); }, field.member) || !field.isRequired();
    }
    bool beginBlock(const FieldBlock&) override
    {
        const std::string& key = m_keys[m_next++];
        m_good = m_good && m_blocks[m_depth].get(key, m_blocks[m_depth + 1]);
        ++m_depth;
        return true;
    }
    void endBlock() override { --m_depth; }
    void customItems(GmCustomNode& custom) override { m_good = m_good && m_blocks[m_depth].readCustom(custom); }

private:
    template <class Value>
    bool take(const std::string& key, Value& out)
    {
        return m_blocks[m_depth].get(key, out);
    }
    bool take(const std::string& key, GmOptionalFlag& out)
    {
        bool value = false;
        if (!m_blocks[m_depth].get(key, value))
            return false;
        out = GmOptionalFlag(new bool(value));
        return true;
    }

    const std::vector<std::string>& m_keys = KeyList::keys();
    std::size_t m_next = 0;
    std::array<Source, 8> m_blocks{}; // the one that is read, after those around it
    std::size_t m_depth = 0;
    bool m_good = true;
};

template <class Source>
bool readConfiguration(Source source, GmPlotCfg3& configuration)
{
    configuration.m_media.m_destination = new GmDestinationNode;
    configuration.m_custom = new GmCustomNode;
    Reader<Source> reader(source);
    forEachField(configuration, reader);
    return reader.isGood();
}
} // namespace peers
