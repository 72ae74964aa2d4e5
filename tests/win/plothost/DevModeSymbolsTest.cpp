#include "plothost/DevModeSymbols.h"

#include <gtest/gtest.h>

#include <windows.h>

using namespace plothost;

namespace
{
// The names are checked against the system's own headers, which the program itself cannot use everywhere.
template <std::size_t count>
void expectSame(std::span<const Symbol> table, const Symbol (&expected)[count])
{
    ASSERT_EQ(table.size(), count);
    for (std::size_t i = 0; i < count; ++i)
    {
        EXPECT_STREQ(table[i].name, expected[i].name);
        EXPECT_EQ(table[i].value, expected[i].value) << expected[i].name;
    }
}
} // namespace

#define NAMED(name)                                                                                                    \
    {                                                                                                                  \
        name, #name                                                                                                    \
    }

TEST(DevModeSymbolsOnWindows, flags)
{
    const Symbol expected[] = {
        NAMED(DM_ORIENTATION),
        NAMED(DM_PAPERSIZE),
        NAMED(DM_PAPERLENGTH),
        NAMED(DM_PAPERWIDTH),
        NAMED(DM_SCALE),
        NAMED(DM_POSITION),
        NAMED(DM_NUP),
        NAMED(DM_DISPLAYORIENTATION),
        NAMED(DM_COPIES),
        NAMED(DM_DEFAULTSOURCE),
        NAMED(DM_PRINTQUALITY),
        NAMED(DM_COLOR),
        NAMED(DM_DUPLEX),
        NAMED(DM_YRESOLUTION),
        NAMED(DM_TTOPTION),
        NAMED(DM_COLLATE),
        NAMED(DM_FORMNAME),
        NAMED(DM_LOGPIXELS),
        NAMED(DM_BITSPERPEL),
        NAMED(DM_PELSWIDTH),
        NAMED(DM_PELSHEIGHT),
        NAMED(DM_DISPLAYFLAGS),
        NAMED(DM_DISPLAYFREQUENCY),
        NAMED(DM_ICMMETHOD),
        NAMED(DM_ICMINTENT),
        NAMED(DM_MEDIATYPE),
        NAMED(DM_DITHERTYPE),
        NAMED(DM_PANNINGWIDTH),
        NAMED(DM_PANNINGHEIGHT),
        NAMED(DM_DISPLAYFIXEDOUTPUT),
    };
    expectSame(symbols::flags, expected);
}

TEST(DevModeSymbolsOnWindows, specVersion)
{
    const Symbol expected[] = {
        NAMED(DM_SPECVERSION),
    };
    expectSame(symbols::specVersion, expected);
}

TEST(DevModeSymbolsOnWindows, orientation)
{
    const Symbol expected[] = {
        NAMED(DMORIENT_PORTRAIT),
        NAMED(DMORIENT_LANDSCAPE),
    };
    expectSame(symbols::orientation, expected);
}

TEST(DevModeSymbolsOnWindows, paper)
{
    const Symbol expected[] = {
        NAMED(DMPAPER_LETTER),
        NAMED(DMPAPER_LETTERSMALL),
        NAMED(DMPAPER_TABLOID),
        NAMED(DMPAPER_LEDGER),
        NAMED(DMPAPER_LEGAL),
        NAMED(DMPAPER_STATEMENT),
        NAMED(DMPAPER_EXECUTIVE),
        NAMED(DMPAPER_A3),
        NAMED(DMPAPER_A4),
        NAMED(DMPAPER_A4SMALL),
        NAMED(DMPAPER_A5),
        NAMED(DMPAPER_B4),
        NAMED(DMPAPER_B5),
        NAMED(DMPAPER_FOLIO),
        NAMED(DMPAPER_QUARTO),
        NAMED(DMPAPER_10X14),
        NAMED(DMPAPER_11X17),
        NAMED(DMPAPER_NOTE),
        NAMED(DMPAPER_ENV_9),
        NAMED(DMPAPER_ENV_10),
        NAMED(DMPAPER_ENV_11),
        NAMED(DMPAPER_ENV_12),
        NAMED(DMPAPER_ENV_14),
        NAMED(DMPAPER_CSHEET),
        NAMED(DMPAPER_DSHEET),
        NAMED(DMPAPER_ESHEET),
        NAMED(DMPAPER_ENV_DL),
        NAMED(DMPAPER_ENV_C5),
        NAMED(DMPAPER_ENV_C3),
        NAMED(DMPAPER_ENV_C4),
        NAMED(DMPAPER_ENV_C6),
        NAMED(DMPAPER_ENV_C65),
        NAMED(DMPAPER_ENV_B4),
        NAMED(DMPAPER_ENV_B5),
        NAMED(DMPAPER_ENV_B6),
        NAMED(DMPAPER_ENV_ITALY),
        NAMED(DMPAPER_ENV_MONARCH),
        NAMED(DMPAPER_ENV_PERSONAL),
        NAMED(DMPAPER_FANFOLD_US),
        NAMED(DMPAPER_FANFOLD_STD_GERMAN),
        NAMED(DMPAPER_FANFOLD_LGL_GERMAN),
        NAMED(DMPAPER_ISO_B4),
        NAMED(DMPAPER_JAPANESE_POSTCARD),
        NAMED(DMPAPER_9X11),
        NAMED(DMPAPER_10X11),
        NAMED(DMPAPER_15X11),
        NAMED(DMPAPER_ENV_INVITE),
        NAMED(DMPAPER_LETTER_EXTRA),
        NAMED(DMPAPER_LEGAL_EXTRA),
        NAMED(DMPAPER_TABLOID_EXTRA),
        NAMED(DMPAPER_A4_EXTRA),
        NAMED(DMPAPER_LETTER_TRANSVERSE),
        NAMED(DMPAPER_A4_TRANSVERSE),
        NAMED(DMPAPER_LETTER_EXTRA_TRANSVERSE),
        NAMED(DMPAPER_A_PLUS),
        NAMED(DMPAPER_B_PLUS),
        NAMED(DMPAPER_LETTER_PLUS),
        NAMED(DMPAPER_A4_PLUS),
        NAMED(DMPAPER_A5_TRANSVERSE),
        NAMED(DMPAPER_B5_TRANSVERSE),
        NAMED(DMPAPER_A3_EXTRA),
        NAMED(DMPAPER_A5_EXTRA),
        NAMED(DMPAPER_B5_EXTRA),
        NAMED(DMPAPER_A2),
        NAMED(DMPAPER_A3_TRANSVERSE),
        NAMED(DMPAPER_A3_EXTRA_TRANSVERSE),
        NAMED(DMPAPER_DBL_JAPANESE_POSTCARD),
        NAMED(DMPAPER_A6),
        NAMED(DMPAPER_JENV_KAKU2),
        NAMED(DMPAPER_JENV_KAKU3),
        NAMED(DMPAPER_JENV_CHOU3),
        NAMED(DMPAPER_JENV_CHOU4),
        NAMED(DMPAPER_LETTER_ROTATED),
        NAMED(DMPAPER_A3_ROTATED),
        NAMED(DMPAPER_A4_ROTATED),
        NAMED(DMPAPER_A5_ROTATED),
        NAMED(DMPAPER_B4_JIS_ROTATED),
        NAMED(DMPAPER_B5_JIS_ROTATED),
        NAMED(DMPAPER_JAPANESE_POSTCARD_ROTATED),
        NAMED(DMPAPER_DBL_JAPANESE_POSTCARD_ROTATED),
        NAMED(DMPAPER_A6_ROTATED),
        NAMED(DMPAPER_JENV_KAKU2_ROTATED),
        NAMED(DMPAPER_JENV_KAKU3_ROTATED),
        NAMED(DMPAPER_JENV_CHOU3_ROTATED),
        NAMED(DMPAPER_JENV_CHOU4_ROTATED),
        NAMED(DMPAPER_B6_JIS),
        NAMED(DMPAPER_B6_JIS_ROTATED),
        NAMED(DMPAPER_12X11),
        NAMED(DMPAPER_JENV_YOU4),
        NAMED(DMPAPER_JENV_YOU4_ROTATED),
        NAMED(DMPAPER_P16K),
        NAMED(DMPAPER_P32K),
        NAMED(DMPAPER_P32KBIG),
        NAMED(DMPAPER_PENV_1),
        NAMED(DMPAPER_PENV_2),
        NAMED(DMPAPER_PENV_3),
        NAMED(DMPAPER_PENV_4),
        NAMED(DMPAPER_PENV_5),
        NAMED(DMPAPER_PENV_6),
        NAMED(DMPAPER_PENV_7),
        NAMED(DMPAPER_PENV_8),
        NAMED(DMPAPER_PENV_9),
        NAMED(DMPAPER_PENV_10),
        NAMED(DMPAPER_P16K_ROTATED),
        NAMED(DMPAPER_P32K_ROTATED),
        NAMED(DMPAPER_P32KBIG_ROTATED),
        NAMED(DMPAPER_PENV_1_ROTATED),
        NAMED(DMPAPER_PENV_2_ROTATED),
        NAMED(DMPAPER_PENV_3_ROTATED),
        NAMED(DMPAPER_PENV_4_ROTATED),
        NAMED(DMPAPER_PENV_5_ROTATED),
        NAMED(DMPAPER_PENV_6_ROTATED),
        NAMED(DMPAPER_PENV_7_ROTATED),
        NAMED(DMPAPER_PENV_8_ROTATED),
        NAMED(DMPAPER_PENV_9_ROTATED),
        NAMED(DMPAPER_PENV_10_ROTATED),
        NAMED(DMPAPER_USER),
    };
    expectSame(symbols::paper, expected);
}

TEST(DevModeSymbolsOnWindows, source)
{
    const Symbol expected[] = {
        NAMED(DMBIN_UPPER),      NAMED(DMBIN_LOWER),     NAMED(DMBIN_MIDDLE),        NAMED(DMBIN_MANUAL),
        NAMED(DMBIN_ENVELOPE),   NAMED(DMBIN_ENVMANUAL), NAMED(DMBIN_AUTO),          NAMED(DMBIN_TRACTOR),
        NAMED(DMBIN_SMALLFMT),   NAMED(DMBIN_LARGEFMT),  NAMED(DMBIN_LARGECAPACITY), NAMED(DMBIN_CASSETTE),
        NAMED(DMBIN_FORMSOURCE), NAMED(DMBIN_USER),
    };
    expectSame(symbols::source, expected);
}

TEST(DevModeSymbolsOnWindows, quality)
{
    const Symbol expected[] = {
        NAMED(DMRES_DRAFT),
        NAMED(DMRES_LOW),
        NAMED(DMRES_MEDIUM),
        NAMED(DMRES_HIGH),
    };
    expectSame(symbols::quality, expected);
}

TEST(DevModeSymbolsOnWindows, color)
{
    const Symbol expected[] = {
        NAMED(DMCOLOR_MONOCHROME),
        NAMED(DMCOLOR_COLOR),
    };
    expectSame(symbols::color, expected);
}

TEST(DevModeSymbolsOnWindows, duplex)
{
    const Symbol expected[] = {
        NAMED(DMDUP_SIMPLEX),
        NAMED(DMDUP_VERTICAL),
        NAMED(DMDUP_HORIZONTAL),
    };
    expectSame(symbols::duplex, expected);
}

TEST(DevModeSymbolsOnWindows, trueType)
{
    const Symbol expected[] = {
        NAMED(DMTT_BITMAP),
        NAMED(DMTT_DOWNLOAD),
        NAMED(DMTT_SUBDEV),
        NAMED(DMTT_DOWNLOAD_OUTLINE),
    };
    expectSame(symbols::trueType, expected);
}

TEST(DevModeSymbolsOnWindows, collate)
{
    const Symbol expected[] = {
        NAMED(DMCOLLATE_FALSE),
        NAMED(DMCOLLATE_TRUE),
    };
    expectSame(symbols::collate, expected);
}

TEST(DevModeSymbolsOnWindows, nup)
{
    const Symbol expected[] = {
        NAMED(DMNUP_SYSTEM),
        NAMED(DMNUP_ONEUP),
    };
    expectSame(symbols::nup, expected);
}

TEST(DevModeSymbolsOnWindows, icmMethod)
{
    const Symbol expected[] = {
        NAMED(DMICMMETHOD_NONE),   NAMED(DMICMMETHOD_SYSTEM), NAMED(DMICMMETHOD_DRIVER),
        NAMED(DMICMMETHOD_DEVICE), NAMED(DMICMMETHOD_USER),
    };
    expectSame(symbols::icmMethod, expected);
}

TEST(DevModeSymbolsOnWindows, icmIntent)
{
    const Symbol expected[] = {
        NAMED(DMICM_SATURATE),         NAMED(DMICM_CONTRAST), NAMED(DMICM_COLORIMETRIC),
        NAMED(DMICM_ABS_COLORIMETRIC), NAMED(DMICM_USER),
    };
    expectSame(symbols::icmIntent, expected);
}

TEST(DevModeSymbolsOnWindows, mediaType)
{
    const Symbol expected[] = {
        NAMED(DMMEDIA_STANDARD),
        NAMED(DMMEDIA_TRANSPARENCY),
        NAMED(DMMEDIA_GLOSSY),
        NAMED(DMMEDIA_USER),
    };
    expectSame(symbols::mediaType, expected);
}

TEST(DevModeSymbolsOnWindows, ditherType)
{
    const Symbol expected[] = {
        NAMED(DMDITHER_NONE),           NAMED(DMDITHER_COARSE),    NAMED(DMDITHER_FINE), NAMED(DMDITHER_LINEART),
        NAMED(DMDITHER_ERRORDIFFUSION), NAMED(DMDITHER_GRAYSCALE), NAMED(DMDITHER_USER),
    };
    expectSame(symbols::ditherType, expected);
}
