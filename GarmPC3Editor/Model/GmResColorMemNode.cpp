#include "GarmPC3Editor/Model/Fields.h"

namespace
{
using namespace fields;

constexpr auto resolutionTable = table<GmResolutionNode>(
    required(OD_T("name"), &GmResolutionNode::m_name),
    kept(OD_T("phys_resolution_x"), &GmResolutionNode::m_phys_resolution_x, oneDigit),
    kept(OD_T("phys_resolution_y"), &GmResolutionNode::m_phys_resolution_y, oneDigit),
    required(OD_T("addr_resolution_x"), &GmResolutionNode::m_addr_resolution_x, oneDigit),
    required(OD_T("addr_resolution_y"), &GmResolutionNode::m_addr_resolution_y, oneDigit),
    required(OD_T("effective_resolution_x"), &GmResolutionNode::m_effective_resolution_x, oneDigit),
    required(OD_T("effective_resolution_y"), &GmResolutionNode::m_effective_resolution_y, oneDigit));

constexpr auto resColorMemTable = table<GmResColorMemNode>(
    required(OD_T("name"), &GmResColorMemNode::m_name), required(OD_T("num_colors"), &GmResColorMemNode::m_num_colors),
    required(OD_T("color_depth"), &GmResColorMemNode::m_color_depth),
    required(OD_T("num_undithered_colors"), &GmResColorMemNode::m_num_undithered_colors),
    required(OD_T("color_system"), &GmResColorMemNode::m_color_system),
    required(OD_T("dm_color"), &GmResColorMemNode::m_dm_color),
    // Left out at 0 although three of them have another default: the file does not keep a 0, and reading it back gives
    // the default. Existing files are like that.
    keptUnless(0, OD_T("icm_method"), &GmResColorMemNode::m_icm_method),
    keptUnless(0, OD_T("icm_intent"), &GmResColorMemNode::m_icm_intent),
    keptUnless(0, OD_T("ism_max"), &GmResColorMemNode::m_ism_max),
    keptUnless(0, OD_T("ole_max"), &GmResColorMemNode::m_ole_max),
    keptUnless(0, OD_T("hard_soft"), &GmResColorMemNode::m_hard_soft),
    keptUnless(0, OD_T("preference"), &GmResColorMemNode::m_preference),
    optionalFlag(OD_T("lines_overwrite"), &GmResColorMemNode::m_lines_overwrite),
    optionalFlag(OD_T("color_mono"), &GmResColorMemNode::m_color_mono),
    requiredBlock(OD_T("resolution"), &GmResColorMemNode::m_resolution));
} // namespace

bool fill(GmResolutionNode& node, const BlockReader& reader)
{
    return resolutionTable.read(node, reader);
}

void forEachField(GmResolutionNode& node, FieldVisitor& visitor)
{
    resolutionTable.visit(node, visitor);
}

bool GmResolutionNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmResolutionNode::write(CPBlock& block) const
{
    return resolutionTable.write(*this, block);
}

bool fill(GmResColorMemNode& node, const BlockReader& reader)
{
    return resColorMemTable.read(node, reader);
}

void forEachField(GmResColorMemNode& node, FieldVisitor& visitor)
{
    resColorMemTable.visit(node, visitor);
}

bool GmResColorMemNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmResColorMemNode::write(CPBlock& block) const
{
    return resColorMemTable.write(*this, block);
}
