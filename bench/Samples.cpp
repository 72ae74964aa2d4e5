#include "bench/Samples.h"

#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPValue.h"
#include "pia_tree/TextWriter.h"

#include <pugixml.hpp>

#include <cstdlib>
#include <random>
#include <sstream>

namespace
{
OdString hexText(std::size_t bytes)
{
    std::mt19937 random(7);
    OdString text;
    for (std::size_t i = 0; i < 2 * bytes; ++i)
        // Private driver data is mostly zeros with islands of settings.
        text += random() % 4 ? OdChar('0') : static_cast<OdChar>(OD_T("0123456789ABCDEF")[random() % 16]);
    return text;
}

OpenPlotCfg configuration(std::size_t privateBytes)
{
    OpenPlotCfg made;
    auto& meta = made.m_meta;
    meta.m_user_defined_model_pathname = OD_T("C:\\Users\\Public\\Documents\\Garmont\\Plotters\\PMP Files\\A0.pmp");
    meta.m_user_defined_model_basename = OD_T("A0.pmp");
    meta.m_driver_pathname = OD_T("C:\\Program Files\\Garmont\\drv\\plotter\\hdi\\systemprinter.hdi");
    meta.m_driver_version = OD_T("4.01.7.0");
    meta.m_driver_tag_line = OD_T("System printer driver, all models of this family");
    meta.m_canonical_family_name = OD_T("Large format colour plotters");
    meta.m_canonical_model_name = OD_T("ColorPlot 4500 with PostScript 3");
    meta.m_localized_family_name = meta.m_canonical_family_name;
    meta.m_localized_model_name = meta.m_canonical_model_name;
    meta.m_model_abilities = OD_T("500005500500505555000005550000000550000500000500000");
    meta.m_udm_description = OD_T("Paper sizes of the big plotter on the second floor");
    meta.m_win_device_name = OD_T("Plotter on the second floor");
    meta.m_short_net_name = OD_T("\\\\printserver\\plotter2");
    meta.m_friendly_net_name = OD_T("Plotter 2 on printserver");
    meta.m_default_system_cfg = GmOptionalFlag(new bool(false));
    meta.m_platform = OD_T("Windows x64");
    meta.m_locale = OD_T("en-US");
    meta.m_config_description = OD_T("Site plans, two copies, folded by the operator");

    auto& media = made.m_media;
    media.m_type = OD_T("Heavyweight coated paper");
    media.m_actual_printable_bounds_llx = 5.8;
    media.m_actual_printable_bounds_lly = 17.790833;
    media.m_actual_printable_bounds_urx = 835.2;
    media.m_actual_printable_bounds_ury = 1171.209167;
    media.m_size.m_name = OD_T("ISO full bleed A0 (841.00 x 1189.00 MM)");
    media.m_size.m_longplot_reduction = 0.75;
    media.m_size.m_dm_scale = 150;
    auto& description = media.m_size.m_media_description;
    description.m_printable_bounds_llx = 5.8;
    description.m_printable_bounds_lly = 17.790833;
    description.m_printable_bounds_urx = 835.2;
    description.m_printable_bounds_ury = 1171.209167;
    description.m_printable_area = 956637.5;
    description.m_media_bounds.m_urx = 841.0;
    description.m_media_bounds.m_ury = 1189.0;
    media.m_destination = OdSharedPtr<GmDestinationNode>(new GmDestinationNode);
    media.m_destination->m_name = OD_T("Bin");
    media.m_destination->m_collating_name = OD_T("None");

    made.m_io.m_pathname = OD_T("\\\\printserver\\plotter2");
    auto& color = made.m_res_color_mem;
    color.m_name = OD_T("Full colour, 16 million colours, dithered");
    color.m_icm_method = 2;
    color.m_icm_intent = 3;
    color.m_lines_overwrite = GmOptionalFlag(new bool(true));
    color.m_color_mono = GmOptionalFlag(new bool(true));
    color.m_resolution.m_name = OD_T("600x600_Best");
    color.m_resolution.m_phys_resolution_x = color.m_resolution.m_phys_resolution_y = 600.0;
    color.m_resolution.m_addr_resolution_x = color.m_resolution.m_addr_resolution_y = 600.0;

    made.m_custom = OdSharedPtr<GmCustomNode>(new GmCustomNode);
    for (const OdChar* key : {OD_T("dmDriverExtra"), OD_T("dmSize"), OD_T("dmSpecVersion"), OD_T("dmMediaType"),
                              OD_T("dmDefaultSource"), OD_T("dmTTOption"), OD_T("dmPaperSize")})
        made.m_custom->setNumber(220, key, true);
    made.m_custom->setRawData(hexText(privateBytes), true);
    return made;
}

// The backslash is the only character in the test values that these formats have to escape.
std::string jsonText(OdStringView text)
{
    std::string out = "\"";
    for (const char c : odToUtf8(text))
    {
        if (c == '\\' || c == '"')
            out += '\\';
        out += c;
    }
    return out + '"';
}

const OdString& textOf(const CPItem& item)
{
    return static_cast<const CPText&>(item).text();
}

// The second item of a custom entry is named after its kind, which these formats cannot derive from the value.
std::string nameOf(const CPItem& item)
{
    return item.type() == CPItem::eBin ? "bin" : odToUtf8(item.name());
}

void putJson(const CPBlock& block, std::string& out)
{
    out += '{';
    for (unsigned i = 0; i < block.size(); ++i)
    {
        const CPItem& item = *block.data(i);
        out += (i ? ",\"" : "\"") + nameOf(item) + "\":";
        switch (item.type())
        {
        case CPItem::eBlock:
            putJson(static_cast<const CPBlock&>(item), out);
            break;
        case CPItem::eBool:
            out += static_cast<const CPBool&>(item).value() ? "true" : "false";
            break;
        case CPItem::eNum:
            out += odToUtf8(textOf(item));
            break;
        case CPItem::eStr:
        case CPItem::eBin:
            out += jsonText(textOf(item));
            break;
        }
    }
    out += '}';
}

void putXml(const CPBlock& block, pugi::xml_node node)
{
    for (unsigned i = 0; i < block.size(); ++i)
    {
        const CPItem& item = *block.data(i);
        // A name must not begin with a digit.
        const std::string name = nameOf(item);
        auto child = node.append_child((name[0] <= '9' ? "_" + name : name).c_str());
        if (item.type() == CPItem::eBlock)
            putXml(static_cast<const CPBlock&>(item), child);
        else if (item.type() == CPItem::eBool)
            child.text().set(static_cast<const CPBool&>(item).value());
        else
            child.text().set(odToUtf8(textOf(item)).c_str());
    }
}

Sample make(std::size_t privateBytes)
{
    Sample sample;
    sample.tree = std::make_unique<CPBlock>(OD_T(""));
    files::ByteBuffer text;
    if (!configuration(privateBytes).writeToBlock(*sample.tree) || pia::writeText(*sample.tree, text) ||
        !CPIAOutput().writeToMemory(*sample.tree, sample.file))
        std::abort();
    sample.text = text.view();
    putJson(*sample.tree, sample.json);
    pugi::xml_document document;
    putXml(*sample.tree, document.append_child("root"));
    std::ostringstream xml;
    document.save(xml, "", pugi::format_raw | pugi::format_no_declaration);
    sample.xml = xml.str();
    return sample;
}
} // namespace

const Sample& smallSample()
{
    static const Sample sample = make(1400);
    return sample;
}

const Sample& largeSample()
{
    static const Sample sample = make(65536);
    return sample;
}
