#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/Blocks.h"

// A configuration in which every key has a value that is written, and its tree as the nodes write it.
namespace sample
{
inline GmPlotCfg3 configuration()
{
    GmPlotCfg3 result;
    result.m_meta.m_win_device_name = OD_T("Plotter A");
    result.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    result.m_meta.m_dm_driver_version = 3;
    result.m_meta.m_default_system_cfg = GmOptionalFlag(new bool(false));
    result.m_meta.m_platform = OD_T("x64");
    result.m_meta.m_locale = OD_T("en");
    result.m_media.m_size.m_name = OD_T("A4");
    result.m_media.m_size.m_longplot_reduction = 0.5;
    result.m_media.m_size.m_dm_scale = 50;
    result.m_media.m_size.m_media_description.m_media_bounds.m_urx = 210.25;
    result.m_media.m_destination = OdSharedPtr<GmDestinationNode>(new GmDestinationNode);
    result.m_res_color_mem.m_icm_method = 1;
    result.m_res_color_mem.m_icm_intent = 2;
    result.m_res_color_mem.m_hard_soft = 3;
    result.m_res_color_mem.m_lines_overwrite = GmOptionalFlag(new bool(true));
    result.m_res_color_mem.m_color_mono = GmOptionalFlag(new bool(false));
    result.m_res_color_mem.m_resolution.m_phys_resolution_x = 600.0;
    result.m_custom = OdSharedPtr<GmCustomNode>(new GmCustomNode);
    result.m_custom->m_numbers[OdString(OD_T("dmSize"))] = OD_T("220");
    result.m_custom->m_numbers[OdString(OD_T("dmDriverExtra"))] = OD_T("2");
    result.m_custom->m_binaries[OdString(OD_T("RawPrivateDeviceData"))] = OD_T("AB01");
    result.m_custom->m_strings[OdString(OD_T("note"))] = OD_T("text");
    result.m_custom->m_flags[OdString(OD_T("bidi"))] = 1;
    return result;
}

template <class Node>
void add(CPBlock& root, OdStringView name, const Node& node)
{
    OdSharedPtr<CPBlock> block(new CPBlock(name));
    EXPECT_TRUE(node.write(*block));
    root.add(block);
}

inline OdSharedPtr<CPBlock> tree(const GmPlotCfg3& configuration)
{
    OdSharedPtr<CPBlock> root(new CPBlock(OD_T("")));
    add(*root, OD_T("meta"), configuration.m_meta);
    add(*root, OD_T("media"), configuration.m_media);
    add(*root, OD_T("io"), configuration.m_io);
    add(*root, OD_T("res_color_mem"), configuration.m_res_color_mem);
    return root;
}
} // namespace sample
