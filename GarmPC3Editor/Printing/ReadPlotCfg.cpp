// Reading a configuration and binding it to an installed printer.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Model/NodeTables.h"
#include "pia_tree/CPIAParser.h"

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
