#include "plothost/DevModeSymbols.h"

#include <string_view>

namespace plothost
{
namespace
{
constexpr Symbol flagsTable[] = {
    {0x1, "DM_ORIENTATION"},
    {0x2, "DM_PAPERSIZE"},
    {0x4, "DM_PAPERLENGTH"},
    {0x8, "DM_PAPERWIDTH"},
    {0x10, "DM_SCALE"},
    {0x20, "DM_POSITION"},
    {0x40, "DM_NUP"},
    {0x80, "DM_DISPLAYORIENTATION"},
    {0x100, "DM_COPIES"},
    {0x200, "DM_DEFAULTSOURCE"},
    {0x400, "DM_PRINTQUALITY"},
    {0x800, "DM_COLOR"},
    {0x1000, "DM_DUPLEX"},
    {0x2000, "DM_YRESOLUTION"},
    {0x4000, "DM_TTOPTION"},
    {0x8000, "DM_COLLATE"},
    {0x10000, "DM_FORMNAME"},
    {0x20000, "DM_LOGPIXELS"},
    {0x40000, "DM_BITSPERPEL"},
    {0x80000, "DM_PELSWIDTH"},
    {0x100000, "DM_PELSHEIGHT"},
    {0x200000, "DM_DISPLAYFLAGS"},
    {0x400000, "DM_DISPLAYFREQUENCY"},
    {0x800000, "DM_ICMMETHOD"},
    {0x1000000, "DM_ICMINTENT"},
    {0x2000000, "DM_MEDIATYPE"},
    {0x4000000, "DM_DITHERTYPE"},
    {0x8000000, "DM_PANNINGWIDTH"},
    {0x10000000, "DM_PANNINGHEIGHT"},
    {0x20000000, "DM_DISPLAYFIXEDOUTPUT"},
};

constexpr Symbol specVersionTable[] = {
    {0x0401, "DM_SPECVERSION"},
};

constexpr Symbol orientationTable[] = {
    {1, "DMORIENT_PORTRAIT"},
    {2, "DMORIENT_LANDSCAPE"},
};

constexpr Symbol paperTable[] = {
    {1, "DMPAPER_LETTER"},
    {2, "DMPAPER_LETTERSMALL"},
    {3, "DMPAPER_TABLOID"},
    {4, "DMPAPER_LEDGER"},
    {5, "DMPAPER_LEGAL"},
    {6, "DMPAPER_STATEMENT"},
    {7, "DMPAPER_EXECUTIVE"},
    {8, "DMPAPER_A3"},
    {9, "DMPAPER_A4"},
    {10, "DMPAPER_A4SMALL"},
    {11, "DMPAPER_A5"},
    {12, "DMPAPER_B4"},
    {13, "DMPAPER_B5"},
    {14, "DMPAPER_FOLIO"},
    {15, "DMPAPER_QUARTO"},
    {16, "DMPAPER_10X14"},
    {17, "DMPAPER_11X17"},
    {18, "DMPAPER_NOTE"},
    {19, "DMPAPER_ENV_9"},
    {20, "DMPAPER_ENV_10"},
    {21, "DMPAPER_ENV_11"},
    {22, "DMPAPER_ENV_12"},
    {23, "DMPAPER_ENV_14"},
    {24, "DMPAPER_CSHEET"},
    {25, "DMPAPER_DSHEET"},
    {26, "DMPAPER_ESHEET"},
    {27, "DMPAPER_ENV_DL"},
    {28, "DMPAPER_ENV_C5"},
    {29, "DMPAPER_ENV_C3"},
    {30, "DMPAPER_ENV_C4"},
    {31, "DMPAPER_ENV_C6"},
    {32, "DMPAPER_ENV_C65"},
    {33, "DMPAPER_ENV_B4"},
    {34, "DMPAPER_ENV_B5"},
    {35, "DMPAPER_ENV_B6"},
    {36, "DMPAPER_ENV_ITALY"},
    {37, "DMPAPER_ENV_MONARCH"},
    {38, "DMPAPER_ENV_PERSONAL"},
    {39, "DMPAPER_FANFOLD_US"},
    {40, "DMPAPER_FANFOLD_STD_GERMAN"},
    {41, "DMPAPER_FANFOLD_LGL_GERMAN"},
    {42, "DMPAPER_ISO_B4"},
    {43, "DMPAPER_JAPANESE_POSTCARD"},
    {44, "DMPAPER_9X11"},
    {45, "DMPAPER_10X11"},
    {46, "DMPAPER_15X11"},
    {47, "DMPAPER_ENV_INVITE"},
    {50, "DMPAPER_LETTER_EXTRA"},
    {51, "DMPAPER_LEGAL_EXTRA"},
    {52, "DMPAPER_TABLOID_EXTRA"},
    {53, "DMPAPER_A4_EXTRA"},
    {54, "DMPAPER_LETTER_TRANSVERSE"},
    {55, "DMPAPER_A4_TRANSVERSE"},
    {56, "DMPAPER_LETTER_EXTRA_TRANSVERSE"},
    {57, "DMPAPER_A_PLUS"},
    {58, "DMPAPER_B_PLUS"},
    {59, "DMPAPER_LETTER_PLUS"},
    {60, "DMPAPER_A4_PLUS"},
    {61, "DMPAPER_A5_TRANSVERSE"},
    {62, "DMPAPER_B5_TRANSVERSE"},
    {63, "DMPAPER_A3_EXTRA"},
    {64, "DMPAPER_A5_EXTRA"},
    {65, "DMPAPER_B5_EXTRA"},
    {66, "DMPAPER_A2"},
    {67, "DMPAPER_A3_TRANSVERSE"},
    {68, "DMPAPER_A3_EXTRA_TRANSVERSE"},
    {69, "DMPAPER_DBL_JAPANESE_POSTCARD"},
    {70, "DMPAPER_A6"},
    {71, "DMPAPER_JENV_KAKU2"},
    {72, "DMPAPER_JENV_KAKU3"},
    {73, "DMPAPER_JENV_CHOU3"},
    {74, "DMPAPER_JENV_CHOU4"},
    {75, "DMPAPER_LETTER_ROTATED"},
    {76, "DMPAPER_A3_ROTATED"},
    {77, "DMPAPER_A4_ROTATED"},
    {78, "DMPAPER_A5_ROTATED"},
    {79, "DMPAPER_B4_JIS_ROTATED"},
    {80, "DMPAPER_B5_JIS_ROTATED"},
    {81, "DMPAPER_JAPANESE_POSTCARD_ROTATED"},
    {82, "DMPAPER_DBL_JAPANESE_POSTCARD_ROTATED"},
    {83, "DMPAPER_A6_ROTATED"},
    {84, "DMPAPER_JENV_KAKU2_ROTATED"},
    {85, "DMPAPER_JENV_KAKU3_ROTATED"},
    {86, "DMPAPER_JENV_CHOU3_ROTATED"},
    {87, "DMPAPER_JENV_CHOU4_ROTATED"},
    {88, "DMPAPER_B6_JIS"},
    {89, "DMPAPER_B6_JIS_ROTATED"},
    {90, "DMPAPER_12X11"},
    {91, "DMPAPER_JENV_YOU4"},
    {92, "DMPAPER_JENV_YOU4_ROTATED"},
    {93, "DMPAPER_P16K"},
    {94, "DMPAPER_P32K"},
    {95, "DMPAPER_P32KBIG"},
    {96, "DMPAPER_PENV_1"},
    {97, "DMPAPER_PENV_2"},
    {98, "DMPAPER_PENV_3"},
    {99, "DMPAPER_PENV_4"},
    {100, "DMPAPER_PENV_5"},
    {101, "DMPAPER_PENV_6"},
    {102, "DMPAPER_PENV_7"},
    {103, "DMPAPER_PENV_8"},
    {104, "DMPAPER_PENV_9"},
    {105, "DMPAPER_PENV_10"},
    {106, "DMPAPER_P16K_ROTATED"},
    {107, "DMPAPER_P32K_ROTATED"},
    {108, "DMPAPER_P32KBIG_ROTATED"},
    {109, "DMPAPER_PENV_1_ROTATED"},
    {110, "DMPAPER_PENV_2_ROTATED"},
    {111, "DMPAPER_PENV_3_ROTATED"},
    {112, "DMPAPER_PENV_4_ROTATED"},
    {113, "DMPAPER_PENV_5_ROTATED"},
    {114, "DMPAPER_PENV_6_ROTATED"},
    {115, "DMPAPER_PENV_7_ROTATED"},
    {116, "DMPAPER_PENV_8_ROTATED"},
    {117, "DMPAPER_PENV_9_ROTATED"},
    {118, "DMPAPER_PENV_10_ROTATED"},
    {256, "DMPAPER_USER"},
};

constexpr Symbol sourceTable[] = {
    {1, "DMBIN_UPPER"},       {2, "DMBIN_LOWER"},     {3, "DMBIN_MIDDLE"},         {4, "DMBIN_MANUAL"},
    {5, "DMBIN_ENVELOPE"},    {6, "DMBIN_ENVMANUAL"}, {7, "DMBIN_AUTO"},           {8, "DMBIN_TRACTOR"},
    {9, "DMBIN_SMALLFMT"},    {10, "DMBIN_LARGEFMT"}, {11, "DMBIN_LARGECAPACITY"}, {14, "DMBIN_CASSETTE"},
    {15, "DMBIN_FORMSOURCE"}, {256, "DMBIN_USER"},
};

constexpr Symbol qualityTable[] = {
    {-1, "DMRES_DRAFT"},
    {-2, "DMRES_LOW"},
    {-3, "DMRES_MEDIUM"},
    {-4, "DMRES_HIGH"},
};

constexpr Symbol colorTable[] = {
    {1, "DMCOLOR_MONOCHROME"},
    {2, "DMCOLOR_COLOR"},
};

constexpr Symbol duplexTable[] = {
    {1, "DMDUP_SIMPLEX"},
    {2, "DMDUP_VERTICAL"},
    {3, "DMDUP_HORIZONTAL"},
};

constexpr Symbol trueTypeTable[] = {
    {1, "DMTT_BITMAP"},
    {2, "DMTT_DOWNLOAD"},
    {3, "DMTT_SUBDEV"},
    {4, "DMTT_DOWNLOAD_OUTLINE"},
};

constexpr Symbol collateTable[] = {
    {0, "DMCOLLATE_FALSE"},
    {1, "DMCOLLATE_TRUE"},
};

constexpr Symbol nupTable[] = {
    {1, "DMNUP_SYSTEM"},
    {2, "DMNUP_ONEUP"},
};

constexpr Symbol icmMethodTable[] = {
    {1, "DMICMMETHOD_NONE"},   {2, "DMICMMETHOD_SYSTEM"}, {3, "DMICMMETHOD_DRIVER"},
    {4, "DMICMMETHOD_DEVICE"}, {256, "DMICMMETHOD_USER"},
};

constexpr Symbol icmIntentTable[] = {
    {1, "DMICM_SATURATE"},         {2, "DMICM_CONTRAST"}, {3, "DMICM_COLORIMETRIC"},
    {4, "DMICM_ABS_COLORIMETRIC"}, {256, "DMICM_USER"},
};

constexpr Symbol mediaTypeTable[] = {
    {1, "DMMEDIA_STANDARD"},
    {2, "DMMEDIA_TRANSPARENCY"},
    {3, "DMMEDIA_GLOSSY"},
    {256, "DMMEDIA_USER"},
};

constexpr Symbol ditherTypeTable[] = {
    {1, "DMDITHER_NONE"},           {2, "DMDITHER_COARSE"},     {3, "DMDITHER_FINE"},   {4, "DMDITHER_LINEART"},
    {5, "DMDITHER_ERRORDIFFUSION"}, {10, "DMDITHER_GRAYSCALE"}, {256, "DMDITHER_USER"},
};

} // namespace

namespace symbols
{
const std::span<const Symbol> flags = flagsTable;
const std::span<const Symbol> specVersion = specVersionTable;
const std::span<const Symbol> orientation = orientationTable;
const std::span<const Symbol> paper = paperTable;
const std::span<const Symbol> source = sourceTable;
const std::span<const Symbol> quality = qualityTable;
const std::span<const Symbol> color = colorTable;
const std::span<const Symbol> duplex = duplexTable;
const std::span<const Symbol> trueType = trueTypeTable;
const std::span<const Symbol> collate = collateTable;
const std::span<const Symbol> nup = nupTable;
const std::span<const Symbol> icmMethod = icmMethodTable;
const std::span<const Symbol> icmIntent = icmIntentTable;
const std::span<const Symbol> mediaType = mediaTypeTable;
const std::span<const Symbol> ditherType = ditherTypeTable;
} // namespace symbols

std::string symbolOf(std::span<const Symbol> table, std::int64_t value)
{
    for (const Symbol& symbol : table)
        if (symbol.value == value)
            return symbol.name;
    if (table.empty() || value <= table.back().value || !std::string_view(table.back().name).ends_with("_USER"))
        return {};
    return std::string(table.back().name) + "+" + std::to_string(value - table.back().value);
}
} // namespace plothost
