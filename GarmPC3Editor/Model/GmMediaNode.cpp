#include "GarmPC3Editor/Model/Fields.h"
#include "kernel/OdAssert.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace
{
using namespace fields;

constexpr auto mediaBoundsTable = table<GmMediaBoundsNode>(required(OD_T("urx"), &GmMediaBoundsNode::m_urx, shortest),
                                                           required(OD_T("ury"), &GmMediaBoundsNode::m_ury, shortest));

constexpr auto mediaDescriptionTable = table<GmMediaDescriptionNode>(
    required(OD_T("printable_bounds_llx"), &GmMediaDescriptionNode::m_printable_bounds_llx, shortest),
    required(OD_T("printable_bounds_lly"), &GmMediaDescriptionNode::m_printable_bounds_lly, shortest),
    required(OD_T("printable_bounds_urx"), &GmMediaDescriptionNode::m_printable_bounds_urx, shortest),
    required(OD_T("printable_bounds_ury"), &GmMediaDescriptionNode::m_printable_bounds_ury, shortest),
    required(OD_T("printable_area"), &GmMediaDescriptionNode::m_printable_area, shortest),
    required(OD_T("dimensional"), &GmMediaDescriptionNode::m_dimensional),
    requiredBlock(OD_T("media_bounds"), &GmMediaDescriptionNode::m_media_bounds));

constexpr auto sizeTable =
    table<GmSizeNode>(required(OD_T("name"), &GmSizeNode::m_name), required(OD_T("group"), &GmSizeNode::m_group),
                      required(OD_T("landscape_mode"), &GmSizeNode::m_landscape_mode),
                      // Both defaults mean unset. A NaN is not unset.
                      keptUnless(-1.0, OD_T("longplot_reduction"), &GmSizeNode::m_longplot_reduction, shortest),
                      keptUnless(100, OD_T("dm_scale"), &GmSizeNode::m_dm_scale),
                      requiredBlock(OD_T("media_description"), &GmSizeNode::m_media_description));

constexpr auto destinationTable =
    table<GmDestinationNode>(required(OD_T("name"), &GmDestinationNode::m_name),
                             required(OD_T("collating_type"), &GmDestinationNode::m_collating_type),
                             required(OD_T("collating_name"), &GmDestinationNode::m_collating_name));

constexpr auto mediaTable = table<GmMediaNode>(
    required(OD_T("selection_method"), &GmMediaNode::m_selection_method), required(OD_T("type"), &GmMediaNode::m_type),
    required(OD_T("dm_orientation"), &GmMediaNode::m_dm_orientation),
    required(OD_T("actual_printable_bounds_llx"), &GmMediaNode::m_actual_printable_bounds_llx, shortest),
    required(OD_T("actual_printable_bounds_lly"), &GmMediaNode::m_actual_printable_bounds_lly, shortest),
    required(OD_T("actual_printable_bounds_urx"), &GmMediaNode::m_actual_printable_bounds_urx, shortest),
    required(OD_T("actual_printable_bounds_ury"), &GmMediaNode::m_actual_printable_bounds_ury, shortest),
    required(OD_T("number_of_copies"), &GmMediaNode::m_number_of_copies),
    requiredBlock(OD_T("size"), &GmMediaNode::m_size),
    // A destination that cannot be read must not lose the user's paper.
    droppableBlock(OD_T("destination"), &GmMediaNode::m_destination));
} // namespace

const OdChar* const GmDestinationNode::cCollatingName[2] = {OD_T("None"), OD_T("Regular")};

bool fill(GmMediaBoundsNode& node, const BlockReader& reader)
{
    return mediaBoundsTable.read(node, reader);
}

void forEachField(GmMediaBoundsNode& node, FieldVisitor& visitor)
{
    mediaBoundsTable.visit(node, visitor);
}

bool GmMediaBoundsNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmMediaBoundsNode::write(CPBlock& block) const
{
    return mediaBoundsTable.write(*this, block);
}

bool fill(GmMediaDescriptionNode& node, const BlockReader& reader)
{
    return mediaDescriptionTable.read(node, reader);
}

void forEachField(GmMediaDescriptionNode& node, FieldVisitor& visitor)
{
    mediaDescriptionTable.visit(node, visitor);
}

bool GmMediaDescriptionNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmMediaDescriptionNode::write(CPBlock& block) const
{
    return mediaDescriptionTable.write(*this, block);
}

bool fill(GmSizeNode& node, const BlockReader& reader)
{
    return sizeTable.read(node, reader);
}

void forEachField(GmSizeNode& node, FieldVisitor& visitor)
{
    sizeTable.visit(node, visitor);
}

bool GmSizeNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmSizeNode::write(CPBlock& block) const
{
    return sizeTable.write(*this, block);
}

bool GmSizeNode::setName(const OdChar* name)
{
    if (!OD_VERIFY(name, "GarmPC3Editor/GmPlotCfg3"))
        return false;
    const bool changed = !(m_name == name);
    m_name = name;
    return changed;
}

bool fill(GmDestinationNode& node, const BlockReader& reader)
{
    return destinationTable.read(node, reader);
}

void forEachField(GmDestinationNode& node, FieldVisitor& visitor)
{
    destinationTable.visit(node, visitor);
}

bool GmDestinationNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmDestinationNode::write(CPBlock& block) const
{
    return destinationTable.write(*this, block);
}

bool GmDestinationNode::setCollating(bool collate)
{
    const std::int32_t type = collate ? 1 : 0;
    const bool changed = m_collating_type != type;
    m_collating_type = type;
    m_collating_name = cCollatingName[type];
    return changed;
}

bool fill(GmMediaNode& node, const BlockReader& reader)
{
    return mediaTable.read(node, reader);
}

void forEachField(GmMediaNode& node, FieldVisitor& visitor)
{
    mediaTable.visit(node, visitor);
}

bool GmMediaNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmMediaNode::write(CPBlock& block) const
{
    return mediaTable.write(*this, block);
}

bool GmMediaNode::emptyBounds() const
{
    // A margin of exactly 0 counts as empty too: quirk 13.
    constexpr double smallestLength = 0.0001;
    constexpr double smallestArea = 1e-8;
    const auto tooShort = [](double length) { return length < smallestLength; };
    const auto& paper = m_size.m_media_description;
    const std::initializer_list<double> lengths = {m_actual_printable_bounds_llx, m_actual_printable_bounds_lly,
                                                   m_actual_printable_bounds_urx, m_actual_printable_bounds_ury,
                                                   paper.m_printable_bounds_llx,  paper.m_printable_bounds_lly,
                                                   paper.m_printable_bounds_urx,  paper.m_printable_bounds_ury,
                                                   paper.m_media_bounds.m_urx,    paper.m_media_bounds.m_ury};
    return std::any_of(lengths.begin(), lengths.end(), tooShort) || paper.m_printable_area < smallestArea;
}

void GmMediaNode::swapBounds()
{
    auto& paper = m_size.m_media_description;
    std::swap(m_actual_printable_bounds_llx, m_actual_printable_bounds_lly);
    std::swap(m_actual_printable_bounds_urx, m_actual_printable_bounds_ury);
    std::swap(paper.m_printable_bounds_llx, paper.m_printable_bounds_lly);
    std::swap(paper.m_printable_bounds_urx, paper.m_printable_bounds_ury);
    std::swap(paper.m_media_bounds.m_urx, paper.m_media_bounds.m_ury);
}
