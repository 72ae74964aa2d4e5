#pragma once

#include "GarmPC3Editor/Model/FieldVisitor.h"

#include <vector>

// Every key and block of a configuration, as the nodes' own tables have them.
struct ConfigurationKey
{
    OdString block;   // "media/size"
    OdStringView key; // "" for the block itself
    ValueKind kind = ValueKind::text;
    bool isRequired = false; // a configuration without it is not read

    OdString path() const { return key.empty() ? block : block + OD_T("/") + key; }
};

class ConfigurationKeyList : public FieldVisitor
{
public:
    // Blocks come before their keys, all in the order of the file.
    static std::vector<ConfigurationKey> make()
    {
        GmPlotCfg3 configuration;
        configuration.m_media.m_destination = new GmDestinationNode;
        configuration.m_custom = new GmCustomNode;
        ConfigurationKeyList list;
        forEachField(configuration, list);
        return list.m_keys;
    }

    void field(const Field& field) override
    {
        const Block& block = m_blocks.back();
        m_keys.push_back({block.path, field.key, kindOf(field.member), block.isRequired && field.isRequired()});
    }
    bool beginBlock(const FieldBlock& block) override
    {
        const OdString path = m_blocks.empty() ? OdString(block.key) : m_blocks.back().path + OD_T("/") + block.key;
        m_blocks.push_back({path, (m_blocks.empty() || m_blocks.back().isRequired) && block.isRequired});
        m_keys.push_back({path, {}, ValueKind::text, m_blocks.back().isRequired});
        return true;
    }
    void endBlock() override { m_blocks.pop_back(); }
    void customItems(GmCustomNode&) override {}

private:
    struct Block
    {
        OdString path;
        bool isRequired;
    };
    std::vector<Block> m_blocks; // open ones
    std::vector<ConfigurationKey> m_keys;
};
