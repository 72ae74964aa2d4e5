#include "GarmPC3Editor/Model/NodeTables.h"
#include "kernel/OdAssert.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

const OdChar* const GmDestinationNode::cCollatingName[2] = {OD_T("None"), OD_T("Regular")};

bool GmMediaBoundsNode::init(const CPBlock& block)
{
    return nodes::mediaBounds.read(*this, block);
}

bool GmMediaBoundsNode::write(CPBlock& block) const
{
    return nodes::mediaBounds.write(*this, block);
}

bool GmMediaDescriptionNode::init(const CPBlock& block)
{
    return nodes::mediaDescription.read(*this, block);
}

bool GmMediaDescriptionNode::write(CPBlock& block) const
{
    return nodes::mediaDescription.write(*this, block);
}

bool GmSizeNode::init(const CPBlock& block)
{
    return nodes::size.read(*this, block);
}

bool GmSizeNode::write(CPBlock& block) const
{
    return nodes::size.write(*this, block);
}

bool GmSizeNode::setName(const OdChar* name)
{
    if (!OD_VERIFY(name, "GarmPC3Editor/GmPlotCfg3"))
        return false;
    const bool changed = !(m_name == name);
    m_name = name;
    return changed;
}

bool GmDestinationNode::init(const CPBlock& block)
{
    return nodes::destination.read(*this, block);
}

bool GmDestinationNode::write(CPBlock& block) const
{
    return nodes::destination.write(*this, block);
}

bool GmDestinationNode::setCollating(bool collate)
{
    const std::int32_t type = collate ? 1 : 0;
    const bool changed = m_collating_type != type;
    m_collating_type = type;
    m_collating_name = cCollatingName[type];
    return changed;
}

bool GmMediaNode::init(const CPBlock& block)
{
    return nodes::media.read(*this, block);
}

bool GmMediaNode::write(CPBlock& block) const
{
    return nodes::media.write(*this, block);
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
