#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "pia_tree/CPBlock.h"
#include "pia_tree/CPIAOutput.h"

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
