#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "GarmPC3Editor/Decisions/ResolutionName.h"
#include "GarmPC3Editor/Model/DecimalText.h"
#include "resources/Resource.h"

namespace
{
OdString inBrackets(const OdString& text)
{
    return OD_T(" <") + text + OD_T(">");
}

OdString mediaDestLabel(const GmDestinationNode* destination, const GmTexts& texts)
{
    OdString label = texts(IDS_MEDIA_DEST);
    if (destination && !destination->m_name.isEmpty())
        label += inBrackets(destination->m_name);
    return label;
}

OdString sourceSizeLabel(const GmSizeNode& size, const GmTexts& texts)
{
    OdString label = texts(IDS_SOURCE_SIZE);
    if (!size.m_name.isEmpty())
        label += OD_T(" ") + formatText(texts(IDS_SIZE_VALUE), {size.m_name});
    return label;
}

OdString collatingLabel(const GmDestinationNode* destination, const GmTexts& texts)
{
    OdString label = texts(IDS_COLLATING);
    if (destination && !destination->m_collating_name.isEmpty())
        label += inBrackets(texts(destination->m_collating_type != 0 ? IDS_COLLATING_ON : IDS_COLLATING_OFF));
    return label;
}

OdString vectorGraphicsLabel(const GmResColorMemNode& color, const GmTexts& texts)
{
    OdString label =
        texts(IDS_VECTOR_GRAPHICS) + OD_T(" ") + formatText(texts(IDS_COLORS_VALUE), {colorsText(color, texts)});
    const GmResolutionParts parts = resolutionParts(color.m_resolution.m_name);
    if (!parts.resolution.isEmpty())
        label += OD_T(" ") + formatText(texts(IDS_RESOLUTION_VALUE), {parts.resolution});
    if (!parts.dithering.isEmpty())
        label += OD_T(" ") + formatText(texts(IDS_DITHERING_VALUE), {parts.dithering});
    return label;
}

OdString rasterGraphicsLabel(const GmResColorMemNode& color, const GmTexts& texts)
{
    const auto value = [&texts](UINT format, std::int32_t number)
    { return OD_T(" ") + formatText(texts(format), {decimalFromNumber(number)}); };
    return texts(IDS_RASTER_GRAPHICS) + value(IDS_PREFERENCE_VALUE, color.m_preference) +
           value(IDS_ISM_MAX_VALUE, color.m_ism_max) + value(IDS_OLE_MAX_VALUE, color.m_ole_max);
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

OdString deviceLabel(std::int32_t type, const GmPlotCfg3& cfg, const OdString& fileTitle, const GmTexts& texts)
{
    const GmResColorMemNode& color = cfg.m_res_color_mem;
    const GmDestinationNode* const destination = cfg.m_media.m_destination.get();
    switch (type)
    {
    case eRoot:
        return fileTitle;
    case eMedia:
        return texts(IDS_MEDIA);
    case eMediaDest:
        return mediaDestLabel(destination, texts);
    case eSourceSize:
        return sourceSizeLabel(cfg.m_media.m_size, texts);
    case eCollating:
        return collatingLabel(destination, texts);
    case eGraphics:
        return texts(IDS_GRAPHICS);
    case eVectorGraphics:
        return vectorGraphicsLabel(color, texts);
    case eRasterGraphics:
        return rasterGraphicsLabel(color, texts);
    case eTrueType:
        return texts(IDS_TRUETYPE) +
               inBrackets(texts(cfg.m_meta.m_truetype_as_text ? IDS_TRUETYPE_AS_TEXT : IDS_TRUETYPE_AS_GRAPHICS));
    case eMergeCtrl:
        return texts(IDS_MERGE_CTRL) +
               inBrackets(
                   texts(color.m_lines_overwrite && *color.m_lines_overwrite ? IDS_LINES_OVERWRITE : IDS_LINES_MERGE));
    case eCustomProp:
        return texts(IDS_CUSTOM_PROP);
    default:
        return {};
    }
}
