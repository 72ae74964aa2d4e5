#include "tests/support/operator/Printers.h"

#include "spooler/Handles.h"

#include <stdexcept>
#include <winspool.h>

namespace editordriver
{
namespace
{
[[noreturn]] void fail(const char* what)
{
    throw std::runtime_error(std::string(what) + ": error " + std::to_string(::GetLastError()));
}

LPWSTR unchanged(const wchar_t* text)
{
    return const_cast<LPWSTR>(text);
}
} // namespace

void addPrinter(const std::wstring& name, const std::wstring& driver)
{
    PRINTER_INFO_2W record = {};
    record.pPrinterName = unchanged(name.c_str());
    record.pDriverName = unchanged(driver.c_str());
    record.pPortName = unchanged(L"LPT1:");
    record.pPrintProcessor = unchanged(L"WinPrint");
    record.pDatatype = unchanged(L"RAW");
    const PrinterHandle printer(::AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&record)));
    if (!printer)
        fail("the printer cannot be added");
}

void deletePrinter(const std::wstring& name)
{
    PRINTER_DEFAULTSW wish = {};
    wish.DesiredAccess = PRINTER_ALL_ACCESS;
    HANDLE opened = nullptr;
    if (!::OpenPrinterW(unchanged(name.c_str()), &opened, &wish))
        fail("the printer cannot be opened");
    const PrinterHandle printer(opened);
    if (!::DeletePrinter(printer.get()))
        fail("the printer cannot be deleted");
}
} // namespace editordriver
