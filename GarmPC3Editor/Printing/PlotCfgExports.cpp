// The exported functions of GmPlotCfg3 for reading, converting and creating. Nothing else is in this file, so a program
// can link the functions that these call and still import these from the module.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Printing/Conversions.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"

OdSharedPtr<GmPlotCfg3> GmPlotCfg3::read(const OdString& path, bool& modified)
{
    return answerOnThrow(OdSharedPtr<GmPlotCfg3>(),
                         [&]
                         {
                             ReadReport ignored;
                             return readPlotCfg(path, modified, ignored);
                         });
}

bool GmPlotCfg3::init(CPIAParser& parser, bool& modified)
{
    ReadReport ignored;
    return readPlotCfg(*this, parser, modified, ignored);
}

ResolvePrinterResult GmPlotCfg3::resolvePrinterByDriver()
{
    Fault ignored;
    return resolvePrinter(m_meta, ignored);
}

OdSharedPtr<GmPlotCfg3> GmPlotCfg3::create(const OdString& printerName)
{
    return answerOnThrow(OdSharedPtr<GmPlotCfg3>(),
                         [&]
                         {
                             Fault ignored;
                             return createPlotCfg(printerName, ignored);
                         });
}

OdArray<unsigned char> GmPlotCfg3::toDevMode() const
{
    return answerOnThrow(OdArray<unsigned char>(),
                         [this]
                         {
                             Fault ignored;
                             return makeDevMode(*this, ignored);
                         });
}

bool GmPlotCfg3::updateFromDevMode(const DevModeView& dm, const OdString& printerName, bool& modified)
{
    return fromDevMode(dm, printerName, false, modified);
}

bool GmPlotCfg3::updateFromDevMode(const DEVMODEW& dm, const OdString& printerName, bool& modified)
{
    return fromDevMode(dm, printerName, false, modified);
}

bool GmPlotCfg3::fromDevMode(const DEVMODEW& dm, const OdString& printerName, bool insert, bool& modified)
{
    return fromDevMode(DevModeView(claimedBytes(dm)), printerName, insert, modified);
}

bool GmPlotCfg3::fromDevMode(const DevModeView& dm, const OdString& printerName, bool insert, bool& modified)
{
    modified = false;
    return answerOnThrow(false,
                         [&]
                         {
                             Fault ignored;
                             return importDevMode(*this, dm, printerName, insert, modified, ignored);
                         });
}

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
