#include "fuzz/ScriptedConfiguration.h"

#include "GarmPC3Editor/Model/Numbers.h"

namespace
{
constexpr const OdChar* numberKeys[] = {OD_T("dmSize"),      OD_T("dmDriverExtra"),   OD_T("dmSpecVersion"),
                                        OD_T("dmMediaType"), OD_T("dmDefaultSource"), OD_T("dmTTOption"),
                                        OD_T("dmPaperSize")};

OdString someName(Input& input)
{
    static const OdChar* const often[] = {OD_T("Plotter A"),    OD_T("Plotter B"), OD_T("A4"),
                                          OD_T("User300"),      OD_T("user-1"),    OD_T("DMRES_HIGH_None"),
                                          OD_T("600x600_None"), OD_T("Roll"),      OD_T("")};
    return input.oneIn(3) ? input.text(70) : OdString(input.oneOf(often));
}

OdString someNumberText(Input& input)
{
    return input.oneIn(4) ? input.text(20) : decimalFromNumber(input.integer());
}

void changeCustom(Input& input, GmPlotCfg3& cfg)
{
    if (!cfg.m_custom)
        return;
    auto& numbers = cfg.m_custom->m_numbers;
    const OdString key = input.oneOf(numberKeys);
    if (input.oneIn(8))
        numbers.erase(key);
    else
        numbers[key] = someNumberText(input);
    if (input.oneIn(8))
        cfg.m_custom = nullptr;
    else if (input.oneIn(8))
        cfg.m_custom->m_binaries.clear();
    else if (input.flag())
    {
        // Mostly as many characters as the stored size requires.
        std::int32_t extra = 0;
        cfg.m_custom->getNumber(OD_T("dmDriverExtra"), extra);
        const bool fits = extra >= 0 && extra <= 2000 && !input.oneIn(8);
        cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] =
            fits ? OdString(std::basic_string<OdChar>(2 * static_cast<std::size_t>(extra), input.flag() ? 'A' : '!'))
                 : withUpperCaseHexDigits(input.text(40)); // as read from a file
    }
}

void changeMedia(Input& input, GmMediaNode& media)
{
    media.m_size.m_name = someName(input);
    media.m_dm_orientation = input.integer();
    media.m_number_of_copies = input.integer();
    media.m_size.m_dm_scale = input.integer();
    auto& paper = media.m_size.m_media_description;
    for (double* length : {&media.m_actual_printable_bounds_llx, &media.m_actual_printable_bounds_ury,
                           &paper.m_printable_bounds_lly, &paper.m_printable_area, &paper.m_media_bounds.m_urx,
                           &paper.m_media_bounds.m_ury, &media.m_size.m_longplot_reduction})
        *length = input.real();
    media.m_destination = nullptr;
    if (input.flag())
    {
        media.m_destination = new GmDestinationNode;
        media.m_destination->m_collating_type = input.integer();
    }
}

void changeColor(Input& input, GmResColorMemNode& color)
{
    color.m_dm_color = input.integer();
    color.m_icm_method = input.integer();
    color.m_icm_intent = input.integer();
    color.m_color_depth = input.integer();
    color.m_preference = input.integer();
    color.m_lines_overwrite = nullptr;
    if (input.flag())
        color.m_lines_overwrite = new bool(input.flag());
    color.m_resolution.m_name = someName(input);
    color.m_resolution.m_phys_resolution_x = input.real();
    color.m_resolution.m_phys_resolution_y = input.real();
}
} // namespace

GmPlotCfg3 soundConfiguration()
{
    GmPlotCfg3 cfg;
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    cfg.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    cfg.m_media.m_size.m_name = OD_T("A4");
    cfg.m_custom = new GmCustomNode;
    cfg.m_custom->m_numbers = {{OD_T("dmSize"), OD_T("220")},
                               {OD_T("dmDriverExtra"), OD_T("8")},
                               {OD_T("dmSpecVersion"), OD_T("1025")},
                               {OD_T("dmDefaultSource"), OD_T("7")},
                               {OD_T("dmTTOption"), OD_T("2")}};
    cfg.m_custom->m_binaries = {{OD_T("RawPrivateDeviceData"), OD_T("01020304050607F8")}};
    return cfg;
}

void changeConfiguration(Input& input, GmPlotCfg3& cfg)
{
    switch (input.below(5))
    {
    case 0:
        cfg.m_meta.m_win_device_name = someName(input);
        if (input.flag())
            cfg.m_meta.m_win_driver_name = someName(input);
        cfg.m_meta.m_dm_driver_version = input.integer();
        return;
    case 1:
        return changeMedia(input, cfg.m_media);
    case 2:
        return changeColor(input, cfg.m_res_color_mem);
    case 3:
        cfg.m_devModeFields = input.number<std::uint32_t>();
        cfg.m_ditherType = input.number<std::uint32_t>();
        cfg.m_duplex = input.number<std::uint16_t>();
        return;
    default:
        return changeCustom(input, cfg);
    }
}
