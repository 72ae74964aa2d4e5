// What existing hosts rely on: the classes are plain values with their fields in order, and copy as such.

#include "GarmPC3Editor/GmPlotCfg3.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{
template <class... Nodes>
constexpr bool arePlain = ((!std::is_polymorphic_v<Nodes> && std::is_default_constructible_v<Nodes> &&
                            std::is_copy_constructible_v<Nodes> && std::is_copy_assignable_v<Nodes>)&&...);

// A class with a base, or with private fields between public ones, would not have standard layout.
template <class... Nodes>
constexpr bool haveStandardLayout = (std::is_standard_layout_v<Nodes> && ...);

static_assert(arePlain<GmMetaNode, GmMediaNode, GmSizeNode, GmMediaDescriptionNode, GmMediaBoundsNode,
                       GmDestinationNode, GmIoNode, GmResColorMemNode, GmResolutionNode>);
static_assert(haveStandardLayout<GmMetaNode, GmMediaNode, GmSizeNode, GmMediaDescriptionNode, GmMediaBoundsNode,
                                 GmDestinationNode, GmIoNode, GmResColorMemNode, GmResolutionNode>);
static_assert(std::is_trivially_copyable_v<GmMediaBoundsNode> && std::is_trivially_copyable_v<GmMediaDescriptionNode>);
static_assert(!std::is_trivially_copyable_v<GmSizeNode> && !std::is_trivially_copyable_v<GmMediaNode>);
static_assert(std::has_virtual_destructor_v<GmPlotCfg3> && std::is_copy_constructible_v<GmPlotCfg3> &&
              std::is_copy_assignable_v<GmPlotCfg3>);
} // namespace

TEST(NodeClasses, collatingNamesAreATableByType)
{
    static_assert(std::extent_v<decltype(GmDestinationNode::cCollatingName)> == 2);
    EXPECT_EQ(OdString(GmDestinationNode::cCollatingName[0]), OD_T("None"));
    EXPECT_EQ(OdString(GmDestinationNode::cCollatingName[1]), OD_T("Regular"));
}
