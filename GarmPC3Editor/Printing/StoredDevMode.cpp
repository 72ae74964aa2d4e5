#include "GarmPC3Editor/Printing/StoredDevMode.h"

#include "spooler/DevModeView.h"

#include <limits>

namespace storedDevMode
{
namespace
{
bool readNumber(const GmCustomNode& custom, OdStringView key, std::int32_t& out, Fault& fault)
{
    if (custom.getNumber(key, out))
        return true;
    fault = Fault{.stage = FaultStage::makeDevMode,
                  .code = FaultCode::missingKey,
                  .block = OD_T("custom"),
                  .key = OdString(key),
                  .expected = ValueKind::wholeNumber};
    if (const auto stored = custom.m_numbers.find(OdString(key)); stored != custom.m_numbers.end())
    {
        fault.code = FaultCode::notANumber;
        fault.text = stored->second;
    }
    return false;
}

bool fitsField(std::int32_t length)
{
    return length >= 0 && length <= std::numeric_limits<WORD>::max();
}
} // namespace

bool readSizes(const GmCustomNode& custom, Sizes& out, Fault& fault)
{
    Fault::Sizes stored;
    if (!readNumber(custom, driverExtra, stored.driverExtra, fault) || !readNumber(custom, size, stored.size, fault))
        return false;
    const Sizes sizes{static_cast<std::size_t>(stored.size), static_cast<std::size_t>(stored.driverExtra)};
    if (!fitsField(stored.size) || !fitsField(stored.driverExtra) || sizes.size < smallestDevMode)
    {
        fault = Fault{.stage = FaultStage::makeDevMode, .code = FaultCode::badSizes, .stored = stored};
        return false;
    }
    out = sizes;
    return true;
}

bool readPrivateText(const GmCustomNode& custom, std::size_t byteCount, OdString& out, Fault& fault)
{
    const bool isStored = custom.getRawData(out);
    if (isStored && out.view().size() == 2 * byteCount)
        return true;
    fault = Fault{.stage = FaultStage::makeDevMode,
                  .code = isStored ? FaultCode::badPrivateLength : FaultCode::missingKey,
                  .block = OD_T("custom"),
                  .key = OdString(privateBytes),
                  .stored = {.driverExtra = static_cast<std::int32_t>(byteCount)},
                  .digits = out.view().size()};
    return false;
}
} // namespace storedDevMode
