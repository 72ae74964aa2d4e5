#include "GarmPC3Editor/Decisions/DeviceLabels.h"

#include "GarmPC3Editor/Model/Numbers.h"
#include "resources/Resource.h"

namespace
{
OdString inBrackets(const OdString& text)
{
    return OD_T(" <") + text + OD_T(">");
}
} // namespace

GmResolutionParts resolutionParts(const OdString& name)
{
    const int at = name.reverseFind('_');
    if (at <= 0)
        return {name, {}};
    return {name.left(at), name.mid(at + 1)};
}

OdString colorsText(const GmResColorMemNode& color, const GmTexts& texts)
{
    return formatText(texts(IDS_COLORS_AND_DEPTH),
                      {decimalFromNumber(color.m_num_colors), decimalFromNumber(color.m_color_depth)});
}

bool isMonochrome(const GmResColorMemNode& color) noexcept
{
    return color.m_color_depth == 1;
}

OdString rootLabel(const GmLabelSource& source)
{
    return source.fileTitle;
}

OdString mediaDestLabel(const GmLabelSource& source)
{
    const auto& destination = source.cfg.m_media.m_destination;
    OdString label = source.texts(IDS_MEDIA_DEST);
    if (destination && !destination->m_name.isEmpty())
        label += inBrackets(destination->m_name);
    return label;
}

OdString sourceSizeLabel(const GmLabelSource& source)
{
    const GmSizeNode& size = source.cfg.m_media.m_size;
    OdString label = source.texts(IDS_SOURCE_SIZE);
    if (!size.m_name.isEmpty())
        label += OD_T(" ") + formatText(source.texts(IDS_SIZE_VALUE), {size.m_name});
    return label;
}

OdString collatingLabel(const GmLabelSource& source)
{
    const auto& destination = source.cfg.m_media.m_destination;
    OdString label = source.texts(IDS_COLLATING);
    if (destination && !destination->m_collating_name.isEmpty())
        label += inBrackets(source.texts(destination->m_collating_type != 0 ? IDS_COLLATING_ON : IDS_COLLATING_OFF));
    return label;
}

OdString vectorGraphicsLabel(const GmLabelSource& source)
{
    const GmResColorMemNode& color = source.cfg.m_res_color_mem;
    const auto value = [&source](UINT format, const OdString& text)
    { return OD_T(" ") + formatText(source.texts(format), {text}); };
    OdString label = source.texts(IDS_VECTOR_GRAPHICS) + value(IDS_COLORS_VALUE, colorsText(color, source.texts));
    const GmResolutionParts parts = resolutionParts(color.m_resolution.m_name);
    if (!parts.resolution.isEmpty())
        label += value(IDS_RESOLUTION_VALUE, parts.resolution);
    if (!parts.dithering.isEmpty())
        label += value(IDS_DITHERING_VALUE, parts.dithering);
    return label;
}

OdString rasterGraphicsLabel(const GmLabelSource& source)
{
    const GmResColorMemNode& color = source.cfg.m_res_color_mem;
    const auto value = [&source](UINT format, std::int32_t number)
    { return OD_T(" ") + formatText(source.texts(format), {decimalFromNumber(number)}); };
    return source.texts(IDS_RASTER_GRAPHICS) + value(IDS_PREFERENCE_VALUE, color.m_preference) +
           value(IDS_ISM_MAX_VALUE, color.m_ism_max) + value(IDS_OLE_MAX_VALUE, color.m_ole_max);
}

OdString trueTypeLabel(const GmLabelSource& source)
{
    const bool asText = source.cfg.m_meta.m_truetype_as_text;
    return source.texts(IDS_TRUETYPE) +
           inBrackets(source.texts(asText ? IDS_TRUETYPE_AS_TEXT : IDS_TRUETYPE_AS_GRAPHICS));
}

OdString mergeCtrlLabel(const GmLabelSource& source)
{
    const GmOptionalFlag& overwrite = source.cfg.m_res_color_mem.m_lines_overwrite;
    return source.texts(IDS_MERGE_CTRL) +
           inBrackets(source.texts(overwrite && *overwrite ? IDS_LINES_OVERWRITE : IDS_LINES_MERGE));
}
