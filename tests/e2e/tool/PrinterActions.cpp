#include "Actions.h"

#include <cstdio>

#include <windows.h>
#include <winspool.h>

namespace
{
int failed(const char* call)
{
    std::fprintf(stderr, "%s failed with error %lu\n", call, ::GetLastError());
    return 1;
}

OdChar* text(const OdString& string)
{
    return const_cast<OdChar*>(string.c_str());
}
} // namespace

int addPrinter(const ActionArguments& arguments)
{
    OdString port(OD_T("FILE:"));
    OdString processor(OD_T("WinPrint"));
    OdString datatype(OD_T("RAW"));
    PRINTER_INFO_2W info = {};
    info.pPrinterName = text(arguments[0]);
    info.pDriverName = text(arguments[1]);
    info.pPortName = text(port);
    info.pPrintProcessor = text(processor);
    info.pDatatype = text(datatype);
    const HANDLE printer = ::AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (!printer)
        return failed("AddPrinterW");
    ::ClosePrinter(printer);
    return 0;
}

int deletePrinter(const ActionArguments& arguments)
{
    HANDLE printer = nullptr;
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    if (!::OpenPrinterW(text(arguments[0]), &printer, &access))
        return failed("OpenPrinterW");
    const BOOL deleted = ::DeletePrinter(printer);
    const int status = deleted ? 0 : failed("DeletePrinter");
    ::ClosePrinter(printer);
    return status;
}
