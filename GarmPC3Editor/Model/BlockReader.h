#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/Fault.h"
#include "pia_tree/CPBlock.h"

#include <vector>

// The result of reading.
struct ReadReport
{
    Fault fault;                // why it failed
    std::vector<Fault> leftOut; // why optional blocks were left out; not a failure
};

// A block that is being read into a node: its content, and its place, for reports.
class BlockReader
{
public:
    // The top level, or a block that is read on its own.
    BlockReader(const CPBlock& block, ReadReport& report) noexcept : m_block(block), m_report(report) {}
    // A block inside another one. Both blocks, the outer reader and the name must outlive it.
    BlockReader(const BlockReader& outer, OdStringView name, const CPBlock& block) noexcept
        : m_outer(&outer), m_name(name), m_block(block), m_report(outer.m_report)
    {
    }
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    const CPBlock& block() const noexcept { return m_block; }

    // These record a fault and return false.
    bool failAtKey(OdStringView key, ValueKind expected) const; // missing, of another kind, or not a number
    bool failAtBlock(OdStringView key) const;                   // there is no such block in this one
    bool failAtCustomItem(OdStringView name) const;

    // The fault is in a block that the configuration can do without.
    void leaveOut() const;

private:
    OdString path() const;

    const BlockReader* m_outer = nullptr;
    OdStringView m_name;
    const CPBlock& m_block;
    ReadReport& m_report;
};

// Fill a node from its block. False at the first required key that is missing, see Fields.h.
bool fill(GmMetaNode& node, const BlockReader& reader);
bool fill(GmMediaBoundsNode& node, const BlockReader& reader);
bool fill(GmMediaDescriptionNode& node, const BlockReader& reader);
bool fill(GmSizeNode& node, const BlockReader& reader);
bool fill(GmDestinationNode& node, const BlockReader& reader);
bool fill(GmMediaNode& node, const BlockReader& reader);
bool fill(GmIoNode& node, const BlockReader& reader);
bool fill(GmResolutionNode& node, const BlockReader& reader);
bool fill(GmResColorMemNode& node, const BlockReader& reader);
bool fill(GmCustomNode& node, const BlockReader& reader);
bool fill(GmPlotCfg3& configuration, const BlockReader& reader);

// Fills a configuration from what a parser has read, or reports why it read nothing. No printer is involved.
bool fill(GmPlotCfg3& configuration, const CPIAParser& parser, ReadReport& report);

// The same without a report.
template <class Node>
bool fillSilently(Node& node, const CPBlock& block)
{
    ReadReport ignored;
    return fill(node, BlockReader(block, ignored));
}
