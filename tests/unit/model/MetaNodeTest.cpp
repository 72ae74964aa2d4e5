#include "GarmPC3Editor/GmMetaNode.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;
using blocks::written;

GmMetaNode boundNode()
{
    GmMetaNode node;
    node.m_user_defined_model_pathname = OD_T("C:\\models");
    node.m_user_defined_model_basename = OD_T("wide.pmp");
    node.m_driver_pathname = OD_T("gdiplot7.hdi");
    node.m_driver_version = OD_T("7.1");
    node.m_driver_tag_line = OD_T("a driver");
    node.m_toolkit_version = 1;
    node.m_driver_type = 3;
    node.m_canonical_family_name = OD_T("family");
    node.m_show_custom_first = true;
    node.m_truetype_as_text = false;
    node.m_canonical_model_name = OD_T("model");
    node.m_localized_family_name = OD_T("Familie");
    node.m_localized_model_name = OD_T("Modell");
    node.m_file_only = true;
    node.m_model_abilities = OD_T("500005500500");
    node.m_udm_description = OD_T("mine");
    node.m_win_device_name = OD_T("Plotter A");
    node.m_win_driver_name = OD_T("Acme HP-GL");
    node.m_short_net_name = OD_T("A");
    node.m_friendly_net_name = OD_T("Plotter A on B");
    node.m_dm_driver_version = 1537;
    node.m_default_system_cfg = new bool(false);
    node.m_platform = OD_T("x64");
    node.m_locale = OD_T("de");
    node.m_config_description = OD_T("for large sheets");
    node.m_config_autospool = true;
    return node;
}

const Lines boundLines = {"user_defined_model_pathname=str C:\\models",
                          "user_defined_model_basename=str wide.pmp",
                          "driver_pathname=str gdiplot7.hdi",
                          "driver_version=str 7.1",
                          "driver_tag_line=str a driver",
                          "toolkit_version=num 1",
                          "driver_type=num 3",
                          "canonical_family_name=str family",
                          "show_custom_first=true",
                          "truetype_as_text=false",
                          "canonical_model_name=str model",
                          "localized_family_name=str Familie",
                          "localized_model_name=str Modell",
                          "file_only=true",
                          "model_abilities=str 500005500500",
                          "udm_description=str mine",
                          "win_device_name=str Plotter A",
                          "win_driver_name=str Acme HP-GL",
                          "short_net_name=str A",
                          "friendly_net_name=str Plotter A on B",
                          "dm_driver_version=num 1537",
                          "default_system_cfg=false",
                          "platform=str x64",
                          "locale=str de",
                          "config_description=str for large sheets",
                          "config_autospool=true"};

OdSharedPtr<CPBlock> boundBlock()
{
    auto block = blocks::make(OD_T("meta"));
    EXPECT_TRUE(boundNode().write(*block));
    return block;
}
} // namespace

TEST(MetaNode, aFullNodeWritesEveryKeyInOrder)
{
    EXPECT_EQ(written(boundNode()), boundLines);
}

TEST(MetaNode, aFreshNodeWritesItsDefaultsAndSkipsWhatIsUnset)
{
    EXPECT_EQ(written(GmMetaNode()), (Lines{"user_defined_model_pathname=str ",
                                            "user_defined_model_basename=str ",
                                            "driver_pathname=str ",
                                            "driver_version=str ",
                                            "driver_tag_line=str ",
                                            "toolkit_version=num 0",
                                            "driver_type=num 0",
                                            "canonical_family_name=str ",
                                            "show_custom_first=false",
                                            "truetype_as_text=true",
                                            "canonical_model_name=str ",
                                            "localized_family_name=str ",
                                            "localized_model_name=str ",
                                            "file_only=false",
                                            "model_abilities=str ",
                                            "udm_description=str ",
                                            "short_net_name=str ",
                                            "friendly_net_name=str ",
                                            "config_description=str ",
                                            "config_autospool=false"}));
}

TEST(MetaNode, readsEveryKeyIntoItsField)
{
    GmMetaNode node;
    ASSERT_TRUE(node.init(*boundBlock()));
    EXPECT_EQ(written(node), boundLines);
    EXPECT_EQ(node.m_win_device_name, OD_T("Plotter A"));
    EXPECT_EQ(node.m_driver_type, 3);
    EXPECT_FALSE(node.m_truetype_as_text);
}

TEST(MetaNode, withoutDeviceNameItBecomesEmptyAndIsNotWritten)
{
    GmMetaNode node;
    node.m_win_device_name = OD_T("Plotter Z");
    ASSERT_TRUE(node.init(*blocks::without(*boundBlock(), OD_T("win_device_name"))));
    EXPECT_TRUE(node.m_win_device_name.isEmpty());
    Lines expected = boundLines;
    std::erase(expected, "win_device_name=str Plotter A");
    EXPECT_EQ(written(node), expected);
}

TEST(MetaNode, withoutDriverVersionTheFieldIsKept)
{
    const auto block = blocks::without(*boundBlock(), OD_T("dm_driver_version"));
    GmMetaNode fresh;
    ASSERT_TRUE(fresh.init(*block));
    EXPECT_EQ(fresh.m_dm_driver_version, 0);
    GmMetaNode used;
    used.m_dm_driver_version = 42;
    ASSERT_TRUE(used.init(*block));
    EXPECT_EQ(used.m_dm_driver_version, 42);
}

TEST(MetaNode, aDriverVersionOfZeroIsNotWritten)
{
    GmMetaNode node = boundNode();
    node.m_dm_driver_version = 0;
    Lines expected = boundLines;
    std::erase(expected, "dm_driver_version=num 1537");
    EXPECT_EQ(written(node), expected);
}

TEST(MetaNode, aFalseSystemFlagIsPresentAndWrittenBack)
{
    GmMetaNode node;
    ASSERT_TRUE(node.init(*boundBlock()));
    ASSERT_TRUE(node.m_default_system_cfg);
    EXPECT_FALSE(*node.m_default_system_cfg);
    EXPECT_EQ(written(node), boundLines);
}

TEST(MetaNode, withoutSystemFlagItStaysAbsentAndIsNotWritten)
{
    GmMetaNode node;
    ASSERT_TRUE(node.init(*blocks::without(*boundBlock(), OD_T("default_system_cfg"))));
    EXPECT_TRUE(node.m_default_system_cfg.isNull());
    Lines expected = boundLines;
    std::erase(expected, "default_system_cfg=false");
    EXPECT_EQ(written(node), expected);
}

TEST(MetaNode, withoutTheLastKeyItFails)
{
    GmMetaNode node;
    EXPECT_FALSE(node.init(*blocks::without(*boundBlock(), OD_T("config_autospool"))));
    EXPECT_EQ(node.m_config_description, OD_T("for large sheets"));
}

TEST(MetaNode, withoutToolkitVersionTheFirstFiveTextsAreStored)
{
    GmMetaNode node;
    EXPECT_FALSE(node.init(*blocks::without(*boundBlock(), OD_T("toolkit_version"))));
    EXPECT_EQ(node.m_user_defined_model_pathname, OD_T("C:\\models"));
    EXPECT_EQ(node.m_driver_tag_line, OD_T("a driver"));
    EXPECT_EQ(node.m_driver_type, 0);
    EXPECT_TRUE(node.m_canonical_family_name.isEmpty());
}

TEST(MetaNode, copiesShareAPresentFlagAndTheLastHolderFreesIt)
{
    OdSharedPtr<bool> flag;
    {
        GmMetaNode node = boundNode();
        const GmMetaNode copy = node;
        GmMetaNode assigned;
        assigned = node;
        *node.m_default_system_cfg = true;
        EXPECT_TRUE(*copy.m_default_system_cfg);
        EXPECT_TRUE(*assigned.m_default_system_cfg);
        flag = node.m_default_system_cfg;
        EXPECT_EQ(flag.refCount(), 4);
    }
    EXPECT_EQ(flag.refCount(), 1);
}

TEST(MetaNode, readingAgainLeavesTheFlagOfACopyAlone)
{
    GmMetaNode node = boundNode();
    *node.m_default_system_cfg = true;
    const GmMetaNode copy = node;
    ASSERT_TRUE(node.init(*boundBlock()));
    EXPECT_FALSE(*node.m_default_system_cfg);
    EXPECT_TRUE(*copy.m_default_system_cfg);
}
