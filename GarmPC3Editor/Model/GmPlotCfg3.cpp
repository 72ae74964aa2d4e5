#include "GarmPC3Editor/GmPlotCfg3.h"

#include "GarmPC3Editor/Model/Fields.h"
#include "pia_tree/CPIAParser.h"

namespace
{
using namespace fields;

constexpr auto configurationTable = table<GmPlotCfg3>(
    requiredBlock(OD_T("meta"), &GmPlotCfg3::m_meta), requiredBlock(OD_T("media"), &GmPlotCfg3::m_media),
    requiredBlock(OD_T("io"), &GmPlotCfg3::m_io), requiredBlock(OD_T("res_color_mem"), &GmPlotCfg3::m_res_color_mem),
    // Custom data that cannot be read is dropped; the configuration works without it.
    droppableBlock(OD_T("custom"), &GmPlotCfg3::m_custom));
} // namespace

GmPlotCfg3::GmPlotCfg3() = default;
GmPlotCfg3::GmPlotCfg3(const GmPlotCfg3& other) = default;
GmPlotCfg3& GmPlotCfg3::operator=(const GmPlotCfg3& other) = default;
GmPlotCfg3::~GmPlotCfg3() = default;

bool fill(GmPlotCfg3& configuration, const BlockReader& reader)
{
    return configurationTable.read(configuration, reader);
}

bool fill(GmPlotCfg3& configuration, const CPIAParser& parser, ReadReport& report)
{
    if (const CPBlock* root = parser.root())
        return fill(configuration, BlockReader(*root, report));
    report.fault = Fault{.code = FaultCode::badFile, .reason = parser.reason(), .line = parser.line()};
    return false;
}

void forEachField(GmPlotCfg3& configuration, FieldVisitor& visitor)
{
    configurationTable.visit(configuration, visitor);
}

bool GmPlotCfg3::writeToBlock(CPBlock& root) const
{
    return configurationTable.write(*this, root);
}
