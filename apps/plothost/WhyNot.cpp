#include "plothost/WhyNot.h"

#include "kernel/OdText.h"
#include "pia_tree/CPBlock.h"
#include "pia_tree/CPIAParser.h"
#include "pia_tree/CPValue.h"
#include "plothost/ConfigurationKeys.h"
#include "plothost/Printable.h"
#include "spooler/DevModeView.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace plothost
{
namespace
{
std::string quoted(OdStringView text)
{
    return "'" + printable(text) + "'";
}

const char* kindName(const ConfigurationKey& key)
{
    if (key.kind == CPItem::eStr)
        return "text";
    if (key.kind == CPItem::eBool)
        return "TRUE or FALSE";
    return key.isInteger ? "whole number" : "number";
}

OdSharedPtr<CPItem> firstOfAnyKind(const CPBlock& block, OdStringView name)
{
    for (unsigned i = 0; i < block.size(); ++i)
        if (OdSharedPtr<CPItem> item = block.data(i); item && item->name() == name)
            return item;
    return nullptr;
}

bool isReadable(const CPBlock& block, const ConfigurationKey& key)
{
    OdString text;
    bool flag = false;
    std::int32_t whole = 0;
    double number = 0;
    switch (key.kind)
    {
    case CPItem::eStr:
        return block.getStr(text, key.name);
    case CPItem::eBool:
        return block.getBool(flag, key.name);
    default:
        return key.isInteger ? block.getInt(whole, key.name) : block.getDbl(number, key.name);
    }
}

std::string whyNoValue(const CPBlock& block, const ConfigurationKey& key, const std::string& where)
{
    const OdSharedPtr<CPItem> number = block.find(key.name, CPItem::eNum);
    const std::string name = "key " + quoted(key.name);
    if (key.kind == CPItem::eNum && number)
        return name + " in " + where + " is no " + kindName(key) + ": " +
               quoted(static_cast<const CPText&>(*number).text().view().substr(0, 40));
    if (firstOfAnyKind(block, key.name))
        return name + " in " + where + " is of another kind; it should be a " + kindName(key);
    return name + " is missing in " + where;
}

// Walks down the path; null where a block is missing, whose name is then in missing.
OdSharedPtr<CPItem> findBlock(const CPBlock& root, OdStringView path, OdStringView& missing)
{
    OdSharedPtr<CPItem> found;
    const CPBlock* at = &root;
    for (OdStringView rest = path; !rest.empty();)
    {
        const std::size_t slash = std::min(rest.find('/'), rest.size());
        missing = rest.substr(0, slash);
        found = at->find(missing, CPItem::eBlock);
        if (!found)
            return nullptr;
        at = static_cast<const CPBlock*>(found.get());
        rest = rest.substr(std::min(slash + 1, rest.size()));
    }
    return found;
}

std::string whyNotBound(const CPBlock& root, const InstalledDrivers& installed)
{
    OdStringView missing;
    const OdSharedPtr<CPItem> meta = findBlock(root, OD_T("meta"), missing);
    OdString driver;
    if (!meta || !static_cast<const CPBlock&>(*meta).getStr(driver, OD_T("win_driver_name")) || driver.isEmpty())
        return {};
    const bool known = std::any_of(installed.names.begin(), installed.names.end(),
                                   [&driver](const OdString& name) { return odEqualNoCase(name, driver); });
    return known ? "" : "no printer with driver " + quoted(driver);
}

bool hasCustomBlock(const OdString& path)
{
    CPIAParser parser;
    return parser.read(path.c_str()) && parser.root()->find(OD_T("custom"), CPItem::eBlock);
}

std::optional<long long> storedNumber(const GmCustomNode& custom, const OdChar* key)
{
    const auto found = custom.m_numbers.find(OdString(key));
    if (found == custom.m_numbers.end())
        return std::nullopt;
    const std::string text = odToUtf8(found->second);
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() ? std::optional<long long>(value) : std::nullopt;
}
} // namespace

std::string whyNotAConfiguration(const CPBlock& root, const InstalledDrivers& installed)
{
    for (const ConfigurationBlock& block : configurationBlocks())
    {
        // What may be missing is dropped when it is damaged, so it is never the reason.
        if (!block.isRequired)
            continue;
        OdStringView missing;
        const OdSharedPtr<CPItem> found = findBlock(root, block.path, missing);
        if (!found)
            return "block " + quoted(block.path) + " is missing";
        for (const ConfigurationKey& key : block.keys)
            if (key.isRequired && !isReadable(static_cast<const CPBlock&>(*found), key))
                return whyNoValue(static_cast<const CPBlock&>(*found), key, "block " + quoted(block.path));
    }
    return whyNotBound(root, installed);
}

std::string whyNotRead(const OdString& path, const InstalledDrivers& installed)
{
    CPIAParser parser;
    if (!parser.read(path.c_str()) || !parser.root())
    {
        const std::string reason = parser.reason();
        return parser.line() == 0 ? reason
                                  : "damaged in line " + std::to_string(parser.line()) + " of its text: " + reason;
    }
    return whyNotAConfiguration(*parser.root(), installed);
}

std::string whyNoDevMode(const OdString& path, const GmPlotCfg3& configuration, unsigned long openError)
{
    const OdString& printer = configuration.m_meta.m_win_device_name;
    if (!configuration.m_custom)
        return hasCustomBlock(path) ? "block 'custom' is damaged and was left out, so there is no DEVMODE"
                                    : "there is no block 'custom' with a DEVMODE";
    if (printer.isEmpty())
        return "the configuration names no Windows printer";

    const GmCustomNode& custom = *configuration.m_custom;
    const std::optional<long long> extra = storedNumber(custom, OD_T("dmDriverExtra"));
    const std::optional<long long> size = storedNumber(custom, OD_T("dmSize"));
    if (!extra || *extra < 0)
        return "key 'dmDriverExtra' is missing in block 'custom'";
    if (!size || *size < 0)
        return "key 'dmSize' is missing in block 'custom'";
    const auto raw = custom.m_binaries.find(OdString(OD_T("RawPrivateDeviceData")));
    if (*extra != 0 && raw == custom.m_binaries.end())
        return "key 'RawPrivateDeviceData' is missing in block 'custom'";
    if (*extra != 0 && raw->second.getLength() != 2 * *extra)
        return "key 'RawPrivateDeviceData' in block 'custom' has " + std::to_string(raw->second.getLength()) +
               " digits; for dmDriverExtra " + std::to_string(*extra) + " it takes " + std::to_string(2 * *extra);
    if (openError != 0)
        return whyNotOpened(printer, openError);
    return "no DEVMODE can be built of dmSize " + std::to_string(*size) + " and dmDriverExtra " +
           std::to_string(*extra);
}

std::string whyNotOpened(const OdString& printer, unsigned long error)
{
    std::string text = "printer " + quoted(printer) + " cannot be opened";
    if (error == ERROR_INVALID_PRINTER_NAME)
        text += ": there is none of that name";
    else if (error == ERROR_ACCESS_DENIED)
        text += ": access is denied";
    else if (error == RPC_S_SERVER_UNAVAILABLE)
        text += ": its server does not answer";
    return text + " (error " + std::to_string(error) + ")";
}
} // namespace plothost
