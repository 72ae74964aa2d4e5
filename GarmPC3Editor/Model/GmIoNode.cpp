#include "GarmPC3Editor/Model/Fields.h"

namespace
{
using namespace fields;

constexpr auto ioTable = table<GmIoNode>(
    required(OD_T("type"), &GmIoNode::m_type), required(OD_T("pathname"), &GmIoNode::m_pathname),
    required(OD_T("allsysvalid"), &GmIoNode::m_allsysvalid), required(OD_T("plot_to_file"), &GmIoNode::m_plot_to_file));
} // namespace

bool fill(GmIoNode& node, const BlockReader& reader)
{
    return ioTable.read(node, reader);
}

void forEachField(GmIoNode& node, FieldVisitor& visitor)
{
    ioTable.visit(node, visitor);
}

bool GmIoNode::init(const CPBlock& block)
{
    return fillSilently(*this, block);
}

bool GmIoNode::write(CPBlock& block) const
{
    return ioTable.write(*this, block);
}
