#include "GarmPC3Editor/Model/Fields.h"

namespace
{
using namespace fields;

constexpr auto metaTable = table<GmMetaNode>(
    required(OD_T("user_defined_model_pathname"), &GmMetaNode::m_user_defined_model_pathname),
    required(OD_T("user_defined_model_basename"), &GmMetaNode::m_user_defined_model_basename),
    required(OD_T("driver_pathname"), &GmMetaNode::m_driver_pathname),
    required(OD_T("driver_version"), &GmMetaNode::m_driver_version),
    required(OD_T("driver_tag_line"), &GmMetaNode::m_driver_tag_line),
    required(OD_T("toolkit_version"), &GmMetaNode::m_toolkit_version),
    required(OD_T("driver_type"), &GmMetaNode::m_driver_type),
    required(OD_T("canonical_family_name"), &GmMetaNode::m_canonical_family_name),
    required(OD_T("show_custom_first"), &GmMetaNode::m_show_custom_first),
    required(OD_T("truetype_as_text"), &GmMetaNode::m_truetype_as_text),
    required(OD_T("canonical_model_name"), &GmMetaNode::m_canonical_model_name),
    required(OD_T("localized_family_name"), &GmMetaNode::m_localized_family_name),
    required(OD_T("localized_model_name"), &GmMetaNode::m_localized_model_name),
    required(OD_T("file_only"), &GmMetaNode::m_file_only),
    required(OD_T("model_abilities"), &GmMetaNode::m_model_abilities),
    required(OD_T("udm_description"), &GmMetaNode::m_udm_description),
    optionalText(OD_T("win_device_name"), &GmMetaNode::m_win_device_name),
    optionalText(OD_T("win_driver_name"), &GmMetaNode::m_win_driver_name),
    required(OD_T("short_net_name"), &GmMetaNode::m_short_net_name),
    required(OD_T("friendly_net_name"), &GmMetaNode::m_friendly_net_name),
    keptUnless(0, OD_T("dm_driver_version"), &GmMetaNode::m_dm_driver_version),
    optionalFlag(OD_T("default_system_cfg"), &GmMetaNode::m_default_system_cfg),
    optionalText(OD_T("platform"), &GmMetaNode::m_platform), optionalText(OD_T("locale"), &GmMetaNode::m_locale),
    required(OD_T("config_description"), &GmMetaNode::m_config_description),
    required(OD_T("config_autospool"), &GmMetaNode::m_config_autospool));
} // namespace

bool fill(GmMetaNode& node, const BlockReader& reader)
{
    return metaTable.read(node, reader);
}

void forEachField(GmMetaNode& node, FieldVisitor& visitor)
{
    metaTable.visit(node, visitor);
}

bool GmMetaNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmMetaNode::write(CPBlock& block) const
{
    return metaTable.write(*this, block);
}
