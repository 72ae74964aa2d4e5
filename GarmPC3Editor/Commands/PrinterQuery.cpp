#include "GarmPC3Editor/Commands/PrinterQuery.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "host/LocalSearch.h"
#include "spooler/Handles.h"

namespace
{
// Driver types of configurations without a Windows printer: they plot under their model's name.
bool plotsWithoutWindowsPrinter(std::int32_t driverType)
{
    return driverType == eImageFileDriver || driverType == eEPlotDriver;
}

bool namesConfiguration(const OdString& deviceName)
{
    constexpr OdStringView ending = OD_T(".pc3");
    // The invariant locale: the extension does not depend on the user's language. For a name of fewer than four
    // characters the last four are all there are, and those never equal the extension.
    const OdString last = deviceName.right(static_cast<int>(ending.size()));
    return ::CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, last.c_str(), last.getLength(), ending.data(),
                            static_cast<int>(ending.size())) == CSTR_EQUAL;
}

OdSharedPtr<GmPlotCfg3> findConfiguration(const OdString& name)
{
    OdString path;
    if (!LocalSearch::SearchPC3File(name, path))
        return nullptr;
    // Rebinding to another printer does not matter here: the answer names the printer that is used.
    bool modified = false;
    return GmPlotCfg3::read(path, modified);
}

PrinterAnswer answerOf(const GmPlotCfg3& cfg)
{
    PrinterAnswer answer;
    answer.devMode = cfg.toDevMode();
    if (!answer.devMode.isEmpty())
        answer.printerName = cfg.m_meta.m_win_device_name;
    else if (plotsWithoutWindowsPrinter(cfg.m_meta.m_driver_type))
        answer.printerName = cfg.m_meta.m_localized_model_name;
    answer.paperName = cfg.m_media.m_size.m_name;
    // The named value has 16 bits; a type that does not fit loses its upper ones.
    answer.driverType = static_cast<std::int16_t>(cfg.m_meta.m_driver_type);
    answer.canonicalModelName = cfg.m_meta.m_canonical_model_name;
    return answer;
}

PrinterAnswer determine(const OdString& deviceName)
{
    if (deviceName.isEmpty())
        return {};
    if (namesConfiguration(deviceName))
    {
        const OdSharedPtr<GmPlotCfg3> cfg = findConfiguration(deviceName);
        return cfg ? answerOf(*cfg) : PrinterAnswer();
    }
    PrinterAnswer answer;
    if (openPrinter(deviceName.c_str()))
        answer.printerName = deviceName;
    return answer;
}
} // namespace

bool queryPrinter(const OdString& deviceName, PrinterAnswer& answer) noexcept
{
    // A driver or port monitor may throw, and memory may run out; either way no printer is available.
    answer = answerOnThrow(PrinterAnswer(), [&deviceName] { return determine(deviceName); });
    return !answer.printerName.isEmpty();
}
