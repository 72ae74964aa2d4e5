#pragma once

// What is in a configuration file, block by block: one table per node.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/NodeFields.h"

namespace nodes
{
using namespace fields;

inline constexpr auto meta = table<GmMetaNode>(
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

inline constexpr auto mediaBounds =
    table<GmMediaBoundsNode>(required(OD_T("urx"), &GmMediaBoundsNode::m_urx, shortest),
                             required(OD_T("ury"), &GmMediaBoundsNode::m_ury, shortest));

inline constexpr auto mediaDescription = table<GmMediaDescriptionNode>(
    required(OD_T("printable_bounds_llx"), &GmMediaDescriptionNode::m_printable_bounds_llx, shortest),
    required(OD_T("printable_bounds_lly"), &GmMediaDescriptionNode::m_printable_bounds_lly, shortest),
    required(OD_T("printable_bounds_urx"), &GmMediaDescriptionNode::m_printable_bounds_urx, shortest),
    required(OD_T("printable_bounds_ury"), &GmMediaDescriptionNode::m_printable_bounds_ury, shortest),
    required(OD_T("printable_area"), &GmMediaDescriptionNode::m_printable_area, shortest),
    required(OD_T("dimensional"), &GmMediaDescriptionNode::m_dimensional),
    requiredBlock(OD_T("media_bounds"), &GmMediaDescriptionNode::m_media_bounds));

inline constexpr auto size =
    table<GmSizeNode>(required(OD_T("name"), &GmSizeNode::m_name), required(OD_T("group"), &GmSizeNode::m_group),
                      required(OD_T("landscape_mode"), &GmSizeNode::m_landscape_mode),
                      // Both defaults mean unset. A NaN is not unset.
                      keptUnless(-1.0, OD_T("longplot_reduction"), &GmSizeNode::m_longplot_reduction, shortest),
                      keptUnless(100, OD_T("dm_scale"), &GmSizeNode::m_dm_scale),
                      requiredBlock(OD_T("media_description"), &GmSizeNode::m_media_description));

inline constexpr auto destination =
    table<GmDestinationNode>(required(OD_T("name"), &GmDestinationNode::m_name),
                             required(OD_T("collating_type"), &GmDestinationNode::m_collating_type),
                             required(OD_T("collating_name"), &GmDestinationNode::m_collating_name));

inline constexpr auto media = table<GmMediaNode>(
    required(OD_T("selection_method"), &GmMediaNode::m_selection_method), required(OD_T("type"), &GmMediaNode::m_type),
    required(OD_T("dm_orientation"), &GmMediaNode::m_dm_orientation),
    required(OD_T("actual_printable_bounds_llx"), &GmMediaNode::m_actual_printable_bounds_llx, shortest),
    required(OD_T("actual_printable_bounds_lly"), &GmMediaNode::m_actual_printable_bounds_lly, shortest),
    required(OD_T("actual_printable_bounds_urx"), &GmMediaNode::m_actual_printable_bounds_urx, shortest),
    required(OD_T("actual_printable_bounds_ury"), &GmMediaNode::m_actual_printable_bounds_ury, shortest),
    required(OD_T("number_of_copies"), &GmMediaNode::m_number_of_copies),
    requiredBlock(OD_T("size"), &GmMediaNode::m_size),
    // Quirk 2.
    droppableBlock(OD_T("destination"), &GmMediaNode::m_destination, &GmDestinationNode::init));

inline constexpr auto io = table<GmIoNode>(
    required(OD_T("type"), &GmIoNode::m_type), required(OD_T("pathname"), &GmIoNode::m_pathname),
    required(OD_T("allsysvalid"), &GmIoNode::m_allsysvalid), required(OD_T("plot_to_file"), &GmIoNode::m_plot_to_file));

inline constexpr auto resolution = table<GmResolutionNode>(
    required(OD_T("name"), &GmResolutionNode::m_name),
    kept(OD_T("phys_resolution_x"), &GmResolutionNode::m_phys_resolution_x, oneDigit),
    kept(OD_T("phys_resolution_y"), &GmResolutionNode::m_phys_resolution_y, oneDigit),
    required(OD_T("addr_resolution_x"), &GmResolutionNode::m_addr_resolution_x, oneDigit),
    required(OD_T("addr_resolution_y"), &GmResolutionNode::m_addr_resolution_y, oneDigit),
    required(OD_T("effective_resolution_x"), &GmResolutionNode::m_effective_resolution_x, oneDigit),
    required(OD_T("effective_resolution_y"), &GmResolutionNode::m_effective_resolution_y, oneDigit));

inline constexpr auto resColorMem = table<GmResColorMemNode>(
    required(OD_T("name"), &GmResColorMemNode::m_name), required(OD_T("num_colors"), &GmResColorMemNode::m_num_colors),
    required(OD_T("color_depth"), &GmResColorMemNode::m_color_depth),
    required(OD_T("num_undithered_colors"), &GmResColorMemNode::m_num_undithered_colors),
    required(OD_T("color_system"), &GmResColorMemNode::m_color_system),
    required(OD_T("dm_color"), &GmResColorMemNode::m_dm_color),
    // Not written while 0, although three of them have another default: quirk 1.
    keptUnless(0, OD_T("icm_method"), &GmResColorMemNode::m_icm_method),
    keptUnless(0, OD_T("icm_intent"), &GmResColorMemNode::m_icm_intent),
    keptUnless(0, OD_T("ism_max"), &GmResColorMemNode::m_ism_max),
    keptUnless(0, OD_T("ole_max"), &GmResColorMemNode::m_ole_max),
    keptUnless(0, OD_T("hard_soft"), &GmResColorMemNode::m_hard_soft),
    keptUnless(0, OD_T("preference"), &GmResColorMemNode::m_preference),
    optionalFlag(OD_T("lines_overwrite"), &GmResColorMemNode::m_lines_overwrite),
    optionalFlag(OD_T("color_mono"), &GmResColorMemNode::m_color_mono),
    requiredBlock(OD_T("resolution"), &GmResColorMemNode::m_resolution));

// The top level of a file.
inline constexpr auto configuration = table<GmPlotCfg3>(
    requiredBlock(OD_T("meta"), &GmPlotCfg3::m_meta), requiredBlock(OD_T("media"), &GmPlotCfg3::m_media),
    requiredBlock(OD_T("io"), &GmPlotCfg3::m_io), requiredBlock(OD_T("res_color_mem"), &GmPlotCfg3::m_res_color_mem),
    // Quirk 2.
    droppableBlock(OD_T("custom"), &GmPlotCfg3::m_custom, &GmCustomNode::parse));
} // namespace nodes
