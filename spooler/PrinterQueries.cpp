#include "spooler/PrinterQueries.h"

#include <algorithm>

namespace
{
// Both sizes of a DEVMODEW have 16 bits, so no block is longer than this. A driver that asks for more than a generous
// multiple of it is not reporting a size.
constexpr LONG largestDevModeAnswer = 1 << 20;

InstalledPrinter fromRecord(const SpoolerRecords& records, const PRINTER_INFO_1W& info)
{
    return {records.text(info.pName), std::nullopt, std::nullopt, info.Flags};
}

InstalledPrinter fromRecord(const SpoolerRecords& records, const PRINTER_INFO_2W& info)
{
    return {records.text(info.pPrinterName), records.text(info.pDriverName), records.text(info.pPortName),
            info.Attributes};
}

InstalledPrinter fromRecord(const SpoolerRecords& records, const PRINTER_INFO_4W& info)
{
    return {records.text(info.pPrinterName), std::nullopt, std::nullopt, info.Attributes};
}

InstalledPrinter fromRecord(const SpoolerRecords& records, const PRINTER_INFO_5W& info)
{
    return {records.text(info.pPrinterName), std::nullopt, records.text(info.pPortName), info.Attributes};
}

template <class Record>
std::vector<InstalledPrinter> enumerate(DWORD flags, DWORD level)
{
    DWORD returned = 0;
    const SpoolerRecords records =
        queryInfo([&](BYTE* buffer, DWORD size, DWORD* needed)
                  { return ::EnumPrintersW(flags, nullptr, level, buffer, size, needed, &returned); });

    std::vector<InstalledPrinter> printers;
    // The count may be wrong, but the buffer's size is not.
    for (DWORD i = 0; i < returned; ++i)
    {
        const std::optional<Record> record = records.at<Record>(i);
        if (!record)
            break;
        printers.push_back(fromRecord(records, *record));
    }
    return printers;
}
} // namespace

std::optional<WideText> portsOfPrinter(HANDLE printer)
{
    const SpoolerRecords records = queryInfo([printer](BYTE* buffer, DWORD size, DWORD* needed)
                                             { return ::GetPrinterW(printer, 5, buffer, size, needed); });
    const auto info = records.at<PRINTER_INFO_5W>(0);
    return info ? records.text(info->pPortName) : std::nullopt;
}

std::optional<WideText> driverOfPrinter(HANDLE printer)
{
    const SpoolerRecords records =
        queryInfo([printer](BYTE* buffer, DWORD size, DWORD* needed)
                  { return ::GetPrinterDriverW(printer, nullptr, 3, buffer, size, needed); });
    const auto info = records.at<DRIVER_INFO_3W>(0);
    return info ? records.text(info->pName) : std::nullopt;
}

DevModeBlock defaultDevMode(HANDLE printer, const WCHAR* name)
{
    const auto device = const_cast<WCHAR*>(name);
    const LONG size = ::DocumentPropertiesW(nullptr, printer, device, nullptr, nullptr, 0);
    if (size <= 0 || size > largestDevModeAnswer)
        return {};
    DevModeBlock block = DevModeBlock::toFill(static_cast<std::size_t>(size));
    if (::DocumentPropertiesW(nullptr, printer, device, block.get(), nullptr, DM_OUT_BUFFER) == 0)
        return {};
    return block;
}

DevModeMerge mergeDevMode(HWND owner, HANDLE printer, const WCHAR* name, std::span<const BYTE> bytes, DWORD mode)
{
    DevModeMerge merge;
    const DevModeView input(bytes);
    if (!input)
        return merge;

    // The size requested now and the stored size may differ: the driver may have been replaced in the meantime.
    const auto device = const_cast<WCHAR*>(name);
    const LONG asked = ::DocumentPropertiesW(nullptr, printer, device, nullptr, nullptr, 0);
    const std::size_t usable = asked > 0 && asked <= largestDevModeAnswer ? static_cast<std::size_t>(asked) : 0;

    merge.block = DevModeBlock::toFill(std::max(usable, input.bytes().size()));
    DEVMODEW* const block = merge.block.get();
    std::memcpy(block, input.bytes().data(), input.bytes().size());
    merge.result = ::DocumentPropertiesW(owner, printer, device, block, block, mode);
    return merge;
}

std::vector<InstalledPrinter> installedPrinters(DWORD flags, DWORD level)
{
    switch (level)
    {
    case 1:
        return enumerate<PRINTER_INFO_1W>(flags, level);
    case 2:
        return enumerate<PRINTER_INFO_2W>(flags, level);
    case 4:
        return enumerate<PRINTER_INFO_4W>(flags, level);
    case 5:
        return enumerate<PRINTER_INFO_5W>(flags, level);
    default:
        return {};
    }
}
