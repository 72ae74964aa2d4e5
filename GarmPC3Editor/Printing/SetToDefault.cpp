// A configuration takes its driver's defaults over.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "spooler/DevModeView.h"

bool GmPlotCfg3::setToDefault()
{
    return answerOnThrow(false,
                         [&]
                         {
                             const OdString printerName = m_meta.m_win_device_name;
                             const GmPrinterInfo printer(printerName);
                             if (!printer.isOpen())
                                 return false;
                             const DevModeBlock defaults = printer.defaultDevMode();
                             const DevModeView view = defaults.view();
                             bool changed = false;
                             return view && fromDevMode(view, printerName, false, changed) && changed;
                         });
}
