#include "GarmPC3Editor/GmPlotCfg3.h"

#include "GarmPC3Editor/AnswerOnThrow.h"
#include "GarmPC3Editor/NodeTables.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPIAParser.h"

GmPlotCfg3::GmPlotCfg3() = default;
GmPlotCfg3::GmPlotCfg3(const GmPlotCfg3& other) = default;
GmPlotCfg3& GmPlotCfg3::operator=(const GmPlotCfg3& other) = default;
GmPlotCfg3::~GmPlotCfg3() = default;

OdSharedPtr<GmPlotCfg3> GmPlotCfg3::read(const OdString& path, bool& modified)
{
    return answerOnThrow(OdSharedPtr<GmPlotCfg3>(),
                         [&]
                         {
                             CPIAParser parser;
                             if (!parser.read(path.c_str()))
                                 return OdSharedPtr<GmPlotCfg3>();
                             OdSharedPtr<GmPlotCfg3> configuration(new GmPlotCfg3);
                             return configuration->init(parser, modified) ? configuration : nullptr;
                         });
}

bool GmPlotCfg3::init(CPIAParser& parser, bool& modified)
{
    const CPBlock* root = parser.root();
    if (!root || !nodes::configuration.read(*this, *root))
        return false;
    if (m_meta.m_win_driver_name.isEmpty())
        return true;
    const auto resolved = resolvePrinterByDriver();
    modified = resolved == eOtherPrinter;
    return resolved != eNoPrinter;
}

bool GmPlotCfg3::write(const OdString& path) const
{
    return answerOnThrow(false,
                         [&]
                         {
                             if (path.isEmpty())
                                 return false;
                             CPBlock root(OD_T(""));
                             return writeToBlock(root) && CPIAOutput().write(root, path.c_str());
                         });
}

bool GmPlotCfg3::writeToBlock(CPBlock& root) const
{
    return nodes::configuration.write(*this, root);
}
