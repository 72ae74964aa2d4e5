#include "GarmPC3Editor/GmPrnHelper.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"

// The host is third-party code, so neither std::bad_alloc nor a driver's exception gets out: the printer then counts as
// one that cannot be opened or does not respond.

GmPrnHelper::GmPrnHelper(const OdChar* printerName) noexcept
{
    try
    {
        m_info = new GmPrinterInfo(printerName);
    }
    catch (...)
    {
        // No printer: see m_info.
    }
}

GmPrnHelper::GmPrnHelper(const GmPrnHelper& other) noexcept = default;
GmPrnHelper& GmPrnHelper::operator=(const GmPrnHelper& other) noexcept = default;
GmPrnHelper::~GmPrnHelper() = default;

bool GmPrnHelper::isValid() const noexcept
{
    return m_info && m_info->isOpen();
}

bool GmPrnHelper::getPorts(OdString& ports) noexcept
{
    ports.empty();
    try
    {
        return m_info && m_info->getPorts(ports);
    }
    catch (...)
    {
        return false; // ports is still empty: it is filled last
    }
}

OdSharedPtr<GmPlotCfg3> GmPrnHelper::getNewPlotCfg3Ptr() noexcept
{
    try
    {
        return new GmPlotCfg3;
    }
    catch (...)
    {
        return nullptr;
    }
}
