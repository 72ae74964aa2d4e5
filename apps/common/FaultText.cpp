#include "common/FaultText.h"

#include "common/Printable.h"
#include "win32/Win32.h"

namespace apps
{
namespace
{
// A damaged number may be as long as the file.
constexpr std::size_t longestNumberShown = 40;

const char* nameOf(ValueKind kind)
{
    switch (kind)
    {
    case ValueKind::text:
        return "text";
    case ValueKind::flag:
        return "TRUE or FALSE";
    case ValueKind::wholeNumber:
        return "a whole number";
    case ValueKind::number:
        break;
    }
    return "a number";
}

std::string keyOf(const Fault& fault)
{
    return "key " + quoted(fault.key);
}

std::string blockOf(const Fault& fault)
{
    return " in block " + quoted(fault.block);
}

std::string textOf(const Fault::Sizes& sizes)
{
    return "dmSize " + std::to_string(sizes.size) + " and dmDriverExtra " + std::to_string(sizes.driverExtra);
}
} // namespace

std::string textOf(const Fault& fault)
{
    switch (fault.code)
    {
    case FaultCode::none:
        break;
    case FaultCode::badFile:
        return fault.line == 0 ? std::string(fault.reason)
                               : "damaged in line " + std::to_string(fault.line) + " of its text: " + fault.reason;
    case FaultCode::missingBlock:
        return "block " + quoted(fault.block) + " is missing";
    case FaultCode::missingKey:
        return keyOf(fault) + " is missing" + blockOf(fault);
    case FaultCode::otherKind:
        return keyOf(fault) + blockOf(fault) + " has the wrong kind of value; it should be " + nameOf(fault.expected);
    case FaultCode::notANumber:
        return keyOf(fault) + blockOf(fault) + " is not " + nameOf(fault.expected) + ": " +
               quoted(fault.text.view().substr(0, longestNumberShown));
    case FaultCode::badCustomItem:
        return "item " + quoted(fault.key) + blockOf(fault) + " is not a name and a value";
    case FaultCode::noPrinterWithDriver:
        return "no printer with driver " + quoted(fault.text);
    case FaultCode::noCustomData:
        return "there is no block 'custom' with a DEVMODE";
    case FaultCode::noPrinterName:
        return "the configuration names no Windows printer";
    case FaultCode::badSizes:
        return "no DEVMODE can be built with " + textOf(fault.stored);
    case FaultCode::badPrivateLength:
        return keyOf(fault) + blockOf(fault) + " has " + std::to_string(fault.digits) + " digits; for dmDriverExtra " +
               std::to_string(fault.stored.driverExtra) + " it takes " +
               std::to_string(2 * std::int64_t{fault.stored.driverExtra});
    case FaultCode::printerNotOpened:
        return whyNotOpened(fault.text, fault.systemError);
    case FaultCode::badDevMode:
        return "the bytes are not a DEVMODE";
    case FaultCode::otherPrinter:
        return "the DEVMODE is not for printer " + quoted(fault.text);
    case FaultCode::otherSizes:
        return "the DEVMODE has " + textOf(fault.given) + "; the configuration needs " + textOf(fault.stored);
    case FaultCode::unlistedPaper:
        return "the printer does not list its paper with code " + std::to_string(fault.paperCode);
    case FaultCode::noDefaultDevMode:
        return "the driver of printer " + quoted(fault.text) + " returns no default DEVMODE";
    case FaultCode::noPrivateBytes:
        return "the DEVMODE of printer " + quoted(fault.text) + " has no private bytes, which a configuration needs";
    }
    return {};
}

std::string whyNotOpened(OdStringView printer, unsigned long systemError)
{
    std::string text = "printer " + quoted(printer) + " cannot be opened";
    if (systemError == ERROR_INVALID_PRINTER_NAME)
        text += ": there is no printer with that name";
    else if (systemError == ERROR_ACCESS_DENIED)
        text += ": access is denied";
    else if (systemError == RPC_S_SERVER_UNAVAILABLE)
        text += ": its server does not answer";
    return text + " (error " + std::to_string(systemError) + ")";
}
} // namespace apps
