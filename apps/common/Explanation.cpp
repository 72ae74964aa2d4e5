#include "common/Explanation.h"

#include "GarmPC3Editor/Printing/Conversions.h"
#include "common/FaultText.h"
#include "common/Printable.h"
#include "pia_tree/CPIAParser.h"

#include <algorithm>

namespace apps
{
namespace
{
struct Reading
{
    OdSharedPtr<GmPlotCfg3> configuration;
    ReadReport report;
};

Reading readAgain(const OdString& path)
{
    Reading reading;
    bool modified = false;
    reading.configuration = readPlotCfg(path, modified, reading.report);
    return reading;
}

bool isCustomLeftOut(const ReadReport& report)
{
    return std::any_of(report.leftOut.begin(), report.leftOut.end(),
                       [](const Fault& fault) { return fault.code == FaultCode::badCustomItem; });
}
} // namespace

std::optional<std::string> whyNotRead(const OdString& path)
{
    const Reading reading = readAgain(path);
    if (reading.configuration)
        return std::nullopt;
    return textOf(reading.report.fault);
}

std::optional<std::string> whyNoDevMode(const OdString& path)
{
    const Reading reading = readAgain(path);
    if (!reading.configuration)
        return textOf(reading.report.fault);
    Fault fault;
    if (!makeDevMode(*reading.configuration, fault).isEmpty())
        return std::nullopt;
    if (fault.code == FaultCode::noCustomData && isCustomLeftOut(reading.report))
        return "block 'custom' is damaged and was left out, so there is no DEVMODE";
    return textOf(fault);
}

OdString storedPrinter(const OdString& path)
{
    CPIAParser parser;
    parser.read(path.c_str());
    GmPlotCfg3 configuration;
    ReadReport report;
    return fill(configuration, parser, report) ? configuration.m_meta.m_win_device_name : OdString();
}

std::optional<std::string> whyNotCreated(const OdString& printer)
{
    Fault fault;
    if (createPlotCfg(printer, fault))
        return std::nullopt;
    if (fault.stage == FaultStage::create)
        return textOf(fault);
    return "the default settings of printer " + quoted(printer) + " cannot be imported: " + textOf(fault);
}
} // namespace apps
