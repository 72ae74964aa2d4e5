#include "GarmPC3Editor/GmPlotCfg3.h"

#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Model/NodeTables.h"
#include "pia_tree/CPIAOutput.h"

GmPlotCfg3::GmPlotCfg3() = default;
GmPlotCfg3::GmPlotCfg3(const GmPlotCfg3& other) = default;
GmPlotCfg3& GmPlotCfg3::operator=(const GmPlotCfg3& other) = default;
GmPlotCfg3::~GmPlotCfg3() = default;

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
