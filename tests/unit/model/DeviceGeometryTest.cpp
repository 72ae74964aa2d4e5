// What the nodes import from a printer's device context.
#include "GarmPC3Editor/GmMediaNode.h"
#include "GarmPC3Editor/GmResColorMemNode.h"
#include "tests/support/Blocks.h"
#include "tests/support/PrinterRoomTest.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace
{
using blocks::written;

// The example sheet: A4 at 600 dpi with margins that differ.
constexpr room::DeviceCaps sheet = {
    .dpiX = 600, .dpiY = 600, .width = 4960, .height = 7016, .offsetX = 100, .offsetY = 120, .bitsPerPixel = 24};

class DeviceGeometry : public PrinterRoomTest
{
protected:
    // A context of a printer with these capabilities; deleted with the test.
    HDC contextOf(const room::DeviceCaps& caps)
    {
        release();
        room.remove(OD_T("P"));
        room.add({.name = OD_T("P"), .caps = caps});
        m_dc = CreateDCW(OD_T("driver"), OD_T("P"), nullptr, nullptr);
        EXPECT_TRUE(m_dc);
        room.forgetCalls();
        return m_dc;
    }

    std::vector<int> askedCaps() const
    {
        std::vector<int> asked;
        for (const auto& call : room.calls())
            if (call.call == room::Call::getDeviceCaps)
                asked.push_back(static_cast<int>(call.detail));
        return asked;
    }

    void TearDown() override
    {
        release();
        PrinterRoomTest::TearDown();
    }

private:
    void release()
    {
        if (m_dc)
            DeleteDC(m_dc);
        m_dc = nullptr;
    }

    HDC m_dc = nullptr;
};

class MediaBounds : public DeviceGeometry
{
};

class Resolution : public DeviceGeometry
{
protected:
    static DEVMODEW deviceMode(int quality, int y)
    {
        DEVMODEW dm = {};
        dm.dmPrintQuality = static_cast<short>(quality);
        dm.dmYResolution = static_cast<short>(y);
        return dm;
    }

    static GmResolutionNode named(const OdChar* name)
    {
        GmResolutionNode node;
        node.m_name = name;
        return node;
    }

    static void expectX(const GmResolutionNode& node, double x)
    {
        EXPECT_EQ(node.m_phys_resolution_x, x);
        EXPECT_EQ(node.m_addr_resolution_x, x);
        EXPECT_EQ(node.m_effective_resolution_x, x);
    }
    static void expectY(const GmResolutionNode& node, double y)
    {
        EXPECT_EQ(node.m_phys_resolution_y, y);
        EXPECT_EQ(node.m_addr_resolution_y, y);
        EXPECT_EQ(node.m_effective_resolution_y, y);
    }
};
} // namespace

TEST_F(MediaBounds, areTakenInMillimetresWithTheMarginsOffTwice)
{
    GmMediaNode node;
    EXPECT_TRUE(node.setBounds(contextOf(sheet)));
    const auto& paper = node.m_size.m_media_description;
    const double mm = 25.4 / 600;
    EXPECT_NEAR(node.m_actual_printable_bounds_llx, 100 * mm, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_llx, 4.2333, 1e-4);
    EXPECT_NEAR(node.m_actual_printable_bounds_lly, 5.08, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_urx, (4960 - 200) * mm, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_urx, 201.5067, 1e-4);
    EXPECT_NEAR(node.m_actual_printable_bounds_ury, (7016 - 240) * mm, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_ury, 286.8507, 1e-4);
    EXPECT_EQ(paper.m_printable_bounds_llx, node.m_actual_printable_bounds_llx);
    EXPECT_EQ(paper.m_printable_bounds_lly, node.m_actual_printable_bounds_lly);
    EXPECT_EQ(paper.m_printable_bounds_urx, node.m_actual_printable_bounds_urx);
    EXPECT_EQ(paper.m_printable_bounds_ury, node.m_actual_printable_bounds_ury);
    // Three margins are subtracted in each direction.
    EXPECT_NEAR(paper.m_printable_area, (4960 - 300) * mm * (7016 - 360) * mm, 1e-6);
    EXPECT_NEAR(paper.m_printable_area, 55585.84, 1e-2);
    EXPECT_NEAR(paper.m_media_bounds.m_urx, 209.9733, 1e-4);
    EXPECT_NEAR(paper.m_media_bounds.m_ury, 297.0107, 1e-4);
}

TEST_F(MediaBounds, eachAxisHasItsOwnScale)
{
    GmMediaNode node;
    EXPECT_TRUE(node.setBounds(
        contextOf({.dpiX = 254, .dpiY = 508, .width = 1000, .height = 4000, .offsetX = 10, .offsetY = 40})));
    const auto& paper = node.m_size.m_media_description;
    EXPECT_NEAR(node.m_actual_printable_bounds_llx, 1.0, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_lly, 2.0, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_urx, 98.0, 1e-9);
    EXPECT_NEAR(node.m_actual_printable_bounds_ury, 196.0, 1e-9);
    EXPECT_NEAR(paper.m_printable_area, 97.0 * 194.0, 1e-6);
    EXPECT_NEAR(paper.m_media_bounds.m_urx, 100.0, 1e-9);
    EXPECT_NEAR(paper.m_media_bounds.m_ury, 200.0, 1e-9);
}

TEST_F(MediaBounds, theDeviceIsAskedInAFixedOrder)
{
    GmMediaNode node;
    node.setBounds(contextOf(sheet));
    EXPECT_EQ(askedCaps(), (std::vector<int>{88, 90, 112, 113, 110, 111}));
}

TEST_F(MediaBounds, changeOnceForTheSameDevice)
{
    GmMediaNode node;
    const HDC dc = contextOf(sheet);
    EXPECT_TRUE(node.setBounds(dc));
    EXPECT_FALSE(node.setBounds(dc));
}

TEST_F(MediaBounds, eachStoredLengthThatDiffersIsAChange)
{
    const HDC dc = contextOf(sheet);
    GmMediaNode taken;
    taken.setBounds(dc);
    double GmMediaNode::*const actual[] = {
        &GmMediaNode::m_actual_printable_bounds_llx, &GmMediaNode::m_actual_printable_bounds_lly,
        &GmMediaNode::m_actual_printable_bounds_urx, &GmMediaNode::m_actual_printable_bounds_ury};
    for (const auto member : actual)
    {
        GmMediaNode node = taken;
        node.*member += 1e-9;
        EXPECT_TRUE(node.setBounds(dc));
        EXPECT_EQ(written(node), written(taken));
    }
    double GmMediaDescriptionNode::*const printable[] = {
        &GmMediaDescriptionNode::m_printable_bounds_llx, &GmMediaDescriptionNode::m_printable_bounds_lly,
        &GmMediaDescriptionNode::m_printable_bounds_urx, &GmMediaDescriptionNode::m_printable_bounds_ury};
    for (const auto member : printable)
    {
        GmMediaNode node = taken;
        node.m_size.m_media_description.*member = std::numeric_limits<double>::quiet_NaN();
        EXPECT_TRUE(node.setBounds(dc));
        EXPECT_EQ(written(node), written(taken));
    }
    for (const auto member : {&GmMediaBoundsNode::m_urx, &GmMediaBoundsNode::m_ury})
    {
        GmMediaNode node = taken;
        node.m_size.m_media_description.m_media_bounds.*member = 0.0;
        EXPECT_TRUE(node.setBounds(dc));
        EXPECT_EQ(written(node), written(taken));
    }
}

TEST_F(MediaBounds, anAreaThatDiffersAloneIsRewrittenAndIsNoChange)
{
    const HDC dc = contextOf(sheet);
    GmMediaNode node;
    node.setBounds(dc);
    const double area = node.m_size.m_media_description.m_printable_area;
    node.m_size.m_media_description.m_printable_area = 1.0;
    EXPECT_FALSE(node.setBounds(dc));
    EXPECT_EQ(node.m_size.m_media_description.m_printable_area, area);
}

TEST_F(MediaBounds, withoutContextNothingChanges)
{
    GmMediaNode node;
    node.m_size.m_media_description.m_printable_area = 7.25;
    const auto before = written(node);
    EXPECT_FALSE(node.setBounds(nullptr));
    EXPECT_EQ(written(node), before);
    EXPECT_TRUE(askedCaps().empty()) << "there is nobody to ask";
}

TEST_F(MediaBounds, withoutDotsPerInchNothingChanges)
{
    for (const int none : {0, -1, -600, std::numeric_limits<int>::min()})
        for (const bool x : {true, false})
        {
            room::DeviceCaps caps = sheet;
            (x ? caps.dpiX : caps.dpiY) = none;
            GmMediaNode node;
            node.m_size.m_media_description.m_printable_area = 7.25;
            const auto before = written(node);
            EXPECT_FALSE(node.setBounds(contextOf(caps)));
            EXPECT_EQ(written(node), before);
        }
}

TEST_F(MediaBounds, ofABorderlessDeviceStayEmpty)
{
    GmMediaNode node;
    EXPECT_TRUE(node.setBounds(contextOf({.width = 4960, .height = 7016, .offsetX = 0, .offsetY = 0})));
    EXPECT_TRUE(node.emptyBounds());
}

TEST_F(Resolution, isTakenInDotsPerInchAndNamedBySize)
{
    GmResolutionNode node;
    EXPECT_TRUE(node.set(deviceMode(600, 600), nullptr));
    EXPECT_EQ(node.m_name, OD_T("600x600_None"));
    expectX(node, 600.0);
    expectY(node, 600.0);
    EXPECT_FALSE(node.set(deviceMode(600, 600), nullptr));
    EXPECT_EQ(node.m_name, OD_T("600x600_None"));
}

TEST_F(Resolution, aQualityTakesXFromTheDeviceAndYFromTheDeviceMode)
{
    GmResolutionNode node = named(OD_T("600x600_None"));
    EXPECT_TRUE(node.set(deviceMode(-4, 1234), contextOf({.dpiX = 300, .dpiY = 150})));
    EXPECT_EQ(node.m_name, OD_T("DMRES_HIGH_None"));
    expectX(node, 300.0);
    expectY(node, 1234.0);
    EXPECT_EQ(askedCaps(), (std::vector<int>{88}));
}

TEST_F(Resolution, eachQualityHasItsName)
{
    const HDC dc = contextOf({.dpiX = 300, .dpiY = 300});
    const std::pair<int, const OdChar*> names[] = {{-4, OD_T("DMRES_HIGH_None")},
                                                   {-3, OD_T("DMRES_MEDIUM_None")},
                                                   {-2, OD_T("DMRES_LOW_None")},
                                                   {-1, OD_T("DMRES_DRAFT_None")}};
    for (const auto& [quality, name] : names)
    {
        GmResolutionNode node;
        EXPECT_TRUE(node.set(deviceMode(quality, 0), dc));
        EXPECT_EQ(node.m_name, OdString(name));
        expectY(node, 0.0);
    }
}

TEST_F(Resolution, otherQualitiesAreDotsPerInch)
{
    const std::pair<int, const OdChar*> names[] = {
        {0, OD_T("0x7_None")}, {-5, OD_T("-5x7_None")}, {-32768, OD_T("-32768x7_None")}, {32767, OD_T("32767x7_None")}};
    for (const auto& [quality, name] : names)
    {
        GmResolutionNode node;
        EXPECT_TRUE(node.set(deviceMode(quality, 7), contextOf({.dpiX = 300, .dpiY = 300})));
        EXPECT_EQ(node.m_name, OdString(name));
        expectX(node, quality);
        EXPECT_TRUE(askedCaps().empty());
    }
}

TEST_F(Resolution, negativeDotsPerInchCountAsNone)
{
    for (const int none : {0, -300})
    {
        GmResolutionNode node;
        EXPECT_TRUE(node.set(deviceMode(-4, 7), contextOf({.dpiX = none, .dpiY = none})));
        EXPECT_EQ(node.m_name, OD_T("DMRES_HIGH_None"));
        expectX(node, 0);
    }
}

TEST_F(Resolution, aQualityWithoutContextChangesNothingAtAll)
{
    for (const int quality : {-4, -3, -2, -1})
    {
        GmResolutionNode node = named(OD_T("600x600_None"));
        const auto before = written(node);
        EXPECT_FALSE(node.set(deviceMode(quality, 99), nullptr));
        EXPECT_EQ(written(node), before);
    }
}

TEST_F(Resolution, aNameWithoutSuffixStaysWithout)
{
    GmResolutionNode node = named(OD_T("Custom"));
    EXPECT_TRUE(node.set(deviceMode(720, 360), nullptr));
    EXPECT_EQ(node.m_name, OD_T("720x360"));
}

TEST_F(Resolution, theSuffixStartsAtTheLastUnderscore)
{
    GmResolutionNode node = named(OD_T("a_b_c"));
    EXPECT_TRUE(node.set(deviceMode(720, 360), nullptr));
    EXPECT_EQ(node.m_name, OD_T("720x360_c"));
    node = named(OD_T("ends_"));
    EXPECT_TRUE(node.set(deviceMode(720, 360), nullptr));
    EXPECT_EQ(node.m_name, OD_T("720x360_"));
    node = named(OD_T("_all"));
    EXPECT_TRUE(node.set(deviceMode(720, 360), nullptr));
    EXPECT_EQ(node.m_name, OD_T("720x360_all"));
}

TEST_F(Resolution, aQualityNameWithoutSuffixPassesItsOwnEndOn)
{
    GmResolutionNode node = named(OD_T("DMRES_HIGH"));
    const HDC dc = contextOf({.dpiX = 300, .dpiY = 300});
    EXPECT_TRUE(node.set(deviceMode(-2, 300), dc));
    EXPECT_EQ(node.m_name, OD_T("DMRES_LOW_HIGH"));
    EXPECT_FALSE(node.set(deviceMode(-2, 300), dc));
    EXPECT_EQ(node.m_name, OD_T("DMRES_LOW_HIGH"));
}

TEST_F(Resolution, aNameThatDiffersAloneByCaseIsAChange)
{
    GmResolutionNode node;
    node.set(deviceMode(600, 600), nullptr);
    node.m_name = OD_T("600X600_None");
    EXPECT_TRUE(node.set(deviceMode(600, 600), nullptr));
    EXPECT_EQ(node.m_name, OD_T("600x600_None"));
}

TEST_F(Resolution, eachValueThatDiffersIsAChange)
{
    double GmResolutionNode::*const members[] = {
        &GmResolutionNode::m_phys_resolution_x,      &GmResolutionNode::m_phys_resolution_y,
        &GmResolutionNode::m_addr_resolution_x,      &GmResolutionNode::m_addr_resolution_y,
        &GmResolutionNode::m_effective_resolution_x, &GmResolutionNode::m_effective_resolution_y};
    GmResolutionNode taken;
    taken.set(deviceMode(600, 300), nullptr);
    for (const auto member : members)
    {
        GmResolutionNode node = taken;
        node.*member = 1.0;
        EXPECT_TRUE(node.set(deviceMode(600, 300), nullptr));
        EXPECT_EQ(written(node), written(taken));
    }
}

TEST_F(Resolution, aQualityNameGivesItsConstantAloneInAnyCase)
{
    const std::pair<const OdChar*, short> names[] = {{OD_T("DMRES_HIGH"), -4},     {OD_T("dmres_High_None"), -4},
                                                     {OD_T("DMRES_MEDIUM_x"), -3}, {OD_T("dmres_low"), -2},
                                                     {OD_T("DMRES_LOW_HIGH"), -2}, {OD_T("dmres_draft_None"), -1},
                                                     {OD_T("DMRES_HIGHER"), -4}};
    for (const auto& [name, quality] : names)
    {
        GmResolutionNode node = named(name);
        node.m_phys_resolution_x = 600.0;
        node.m_phys_resolution_y = 300.0;
        DEVMODEW dm = deviceMode(77, 88);
        dm.dmFields = DM_ORIENTATION;
        node.get(dm);
        EXPECT_EQ(dm.dmPrintQuality, quality) << node.m_name;
        EXPECT_EQ(dm.dmYResolution, 88);
        EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_ORIENTATION | DM_PRINTQUALITY));
    }
}

TEST_F(Resolution, anyOtherNameGivesBothValuesWithTheirFlags)
{
    for (const OdChar* name : {OD_T("600x600_None"), OD_T(""), OD_T("DMRES_HIG"), OD_T(" DMRES_HIGH"), OD_T("DMRES_")})
    {
        GmResolutionNode node = named(name);
        node.m_phys_resolution_x = 600.9;
        node.m_phys_resolution_y = 300.9;
        DEVMODEW dm = {};
        node.get(dm);
        EXPECT_EQ(dm.dmPrintQuality, 600);
        EXPECT_EQ(dm.dmYResolution, 300);
        EXPECT_EQ(dm.dmFields, 0x400U | 0x2000U);
    }
}

TEST_F(Resolution, aZeroValueIsNotGiven)
{
    GmResolutionNode node;
    node.m_phys_resolution_x = 0.0;
    node.m_phys_resolution_y = 300.0;
    DEVMODEW dm = deviceMode(77, 88);
    node.get(dm);
    EXPECT_EQ(dm.dmPrintQuality, 77);
    EXPECT_EQ(dm.dmYResolution, 300);
    EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_YRESOLUTION));

    node.m_phys_resolution_x = 600.0;
    node.m_phys_resolution_y = -0.0;
    dm = deviceMode(77, 88);
    node.get(dm);
    EXPECT_EQ(dm.dmPrintQuality, 600);
    EXPECT_EQ(dm.dmYResolution, 88);
    EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_PRINTQUALITY));
}

TEST_F(Resolution, valuesThatDoNotFitAreCutTo16Bits)
{
    GmResolutionNode node;
    node.m_phys_resolution_x = 65536.0 + 600.0;
    node.m_phys_resolution_y = std::numeric_limits<double>::infinity();
    DEVMODEW dm = deviceMode(77, 88);
    node.get(dm);
    EXPECT_EQ(dm.dmPrintQuality, 600);
    EXPECT_EQ(dm.dmYResolution, 0);
    EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_PRINTQUALITY | DM_YRESOLUTION));
}

TEST_F(Resolution, nothingElseInTheDeviceModeIsTouched)
{
    DEVMODEW dm;
    std::memset(&dm, 0xA5, sizeof dm);
    DEVMODEW expected = dm;
    expected.dmPrintQuality = 600;
    expected.dmYResolution = 300;
    expected.dmFields |= DM_PRINTQUALITY | DM_YRESOLUTION;
    GmResolutionNode node;
    node.m_phys_resolution_x = 600.0;
    node.m_phys_resolution_y = 300.0;
    node.get(dm);
    EXPECT_EQ(std::memcmp(&dm, &expected, sizeof dm), 0);
}
