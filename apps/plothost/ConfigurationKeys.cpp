#include "plothost/ConfigurationKeys.h"

#include <type_traits>

namespace plothost
{
namespace
{
KeyValue valueOf(bool value)
{
    return value;
}

KeyValue valueOf(std::int32_t value)
{
    return value;
}

KeyValue valueOf(double value)
{
    return value;
}

KeyValue valueOf(const OdString& value)
{
    return value;
}

KeyValue valueOf(const GmOptionalFlag& flag)
{
    return flag ? KeyValue(*flag) : KeyValue();
}

template <class T>
consteval CPItem::EType kindOf()
{
    if constexpr (std::is_same_v<T, OdString>)
        return CPItem::eStr;
    else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, GmOptionalFlag>)
        return CPItem::eBool;
    else
        return CPItem::eNum;
}

// A field carries the name of its key, so one word gives both; a row cannot name the wrong one.
#define KEY(node, key, required)                                                                                       \
    {                                                                                                                  \
        OD_T(#key), kindOf<std::remove_cvref_t<decltype(std::declval<GmPlotCfg3>().node.m_##key)>>(),                  \
            std::is_same_v<std::remove_cvref_t<decltype(std::declval<GmPlotCfg3>().node.m_##key)>, std::int32_t>,      \
            required, [](const GmPlotCfg3& configuration) { return valueOf(configuration.node.m_##key); }              \
    }

const ConfigurationKey metaKeys[] = {
    KEY(m_meta, user_defined_model_pathname, true),
    KEY(m_meta, user_defined_model_basename, true),
    KEY(m_meta, driver_pathname, true),
    KEY(m_meta, driver_version, true),
    KEY(m_meta, driver_tag_line, true),
    KEY(m_meta, toolkit_version, true),
    KEY(m_meta, driver_type, true),
    KEY(m_meta, canonical_family_name, true),
    KEY(m_meta, show_custom_first, true),
    KEY(m_meta, truetype_as_text, true),
    KEY(m_meta, canonical_model_name, true),
    KEY(m_meta, localized_family_name, true),
    KEY(m_meta, localized_model_name, true),
    KEY(m_meta, file_only, true),
    KEY(m_meta, model_abilities, true),
    KEY(m_meta, udm_description, true),
    KEY(m_meta, win_device_name, false),
    KEY(m_meta, win_driver_name, false),
    KEY(m_meta, short_net_name, true),
    KEY(m_meta, friendly_net_name, true),
    KEY(m_meta, dm_driver_version, false),
    KEY(m_meta, default_system_cfg, false),
    KEY(m_meta, platform, false),
    KEY(m_meta, locale, false),
    KEY(m_meta, config_description, true),
    KEY(m_meta, config_autospool, true),
};

const ConfigurationKey mediaKeys[] = {
    KEY(m_media, selection_method, true),
    KEY(m_media, type, true),
    KEY(m_media, dm_orientation, true),
    KEY(m_media, actual_printable_bounds_llx, true),
    KEY(m_media, actual_printable_bounds_lly, true),
    KEY(m_media, actual_printable_bounds_urx, true),
    KEY(m_media, actual_printable_bounds_ury, true),
    KEY(m_media, number_of_copies, true),
};

const ConfigurationKey sizeKeys[] = {
    KEY(m_media.m_size, name, true),           KEY(m_media.m_size, group, true),
    KEY(m_media.m_size, landscape_mode, true), KEY(m_media.m_size, longplot_reduction, false),
    KEY(m_media.m_size, dm_scale, false),
};

const ConfigurationKey descriptionKeys[] = {
    KEY(m_media.m_size.m_media_description, printable_bounds_llx, true),
    KEY(m_media.m_size.m_media_description, printable_bounds_lly, true),
    KEY(m_media.m_size.m_media_description, printable_bounds_urx, true),
    KEY(m_media.m_size.m_media_description, printable_bounds_ury, true),
    KEY(m_media.m_size.m_media_description, printable_area, true),
    KEY(m_media.m_size.m_media_description, dimensional, true),
};

const ConfigurationKey boundsKeys[] = {
    KEY(m_media.m_size.m_media_description.m_media_bounds, urx, true),
    KEY(m_media.m_size.m_media_description.m_media_bounds, ury, true),
};

// Only asked when there is a destination.
const ConfigurationKey destinationKeys[] = {
    KEY(m_media.m_destination.operator*(), name, true),
    KEY(m_media.m_destination.operator*(), collating_type, true),
    KEY(m_media.m_destination.operator*(), collating_name, true),
};

const ConfigurationKey ioKeys[] = {
    KEY(m_io, type, true),
    KEY(m_io, pathname, true),
    KEY(m_io, allsysvalid, true),
    KEY(m_io, plot_to_file, true),
};

const ConfigurationKey resColorMemKeys[] = {
    KEY(m_res_color_mem, name, true),
    KEY(m_res_color_mem, num_colors, true),
    KEY(m_res_color_mem, color_depth, true),
    KEY(m_res_color_mem, num_undithered_colors, true),
    KEY(m_res_color_mem, color_system, true),
    KEY(m_res_color_mem, dm_color, true),
    KEY(m_res_color_mem, icm_method, false),
    KEY(m_res_color_mem, icm_intent, false),
    KEY(m_res_color_mem, ism_max, false),
    KEY(m_res_color_mem, ole_max, false),
    KEY(m_res_color_mem, hard_soft, false),
    KEY(m_res_color_mem, preference, false),
    KEY(m_res_color_mem, lines_overwrite, false),
    KEY(m_res_color_mem, color_mono, false),
};

const ConfigurationKey resolutionKeys[] = {
    KEY(m_res_color_mem.m_resolution, name, true),
    KEY(m_res_color_mem.m_resolution, phys_resolution_x, false),
    KEY(m_res_color_mem.m_resolution, phys_resolution_y, false),
    KEY(m_res_color_mem.m_resolution, addr_resolution_x, true),
    KEY(m_res_color_mem.m_resolution, addr_resolution_y, true),
    KEY(m_res_color_mem.m_resolution, effective_resolution_x, true),
    KEY(m_res_color_mem.m_resolution, effective_resolution_y, true),
};
#undef KEY

const ConfigurationBlock blocks[] = {
    {OD_T("meta"), true, metaKeys},
    {OD_T("media"), true, mediaKeys},
    {OD_T("media/size"), true, sizeKeys},
    {OD_T("media/size/media_description"), true, descriptionKeys},
    {OD_T("media/size/media_description/media_bounds"), true, boundsKeys},
    {optionalBlock, false, destinationKeys},
    {OD_T("io"), true, ioKeys},
    {OD_T("res_color_mem"), true, resColorMemKeys},
    {OD_T("res_color_mem/resolution"), true, resolutionKeys},
};
} // namespace

std::span<const ConfigurationBlock> configurationBlocks()
{
    return blocks;
}
} // namespace plothost
