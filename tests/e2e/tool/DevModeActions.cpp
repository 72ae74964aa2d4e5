#include "Actions.h"
#include "kernel/OdText.h"
#include "plothost/DriverQuestions.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>
#include <cstdio>

#include <windows.h>
#include <winspool.h>

namespace
{
std::vector<BYTE> contentOf(const OdString& path)
{
    std::vector<BYTE> bytes;
    if (std::FILE* file = ::_wfopen(path.c_str(), L"rb"))
    {
        BYTE part[4096];
        for (std::size_t count; (count = std::fread(part, 1, sizeof(part), file)) > 0;)
            bytes.insert(bytes.end(), part, part + count);
        std::fclose(file);
    }
    return bytes;
}

void printOrientation(const char* stage, const OdString& printer)
{
    const std::vector<BYTE> bytes = plothost::driverDefaults(printer);
    std::printf("%s: %d\n", stage, DevModeView(bytes).fields().dmOrientation);
}
} // namespace

int acceptDevMode(const ActionArguments& arguments)
{
    const std::vector<BYTE> bytes = contentOf(arguments[1]);
    if (bytes.size() < sizeof(DEVMODEW))
    {
        std::fprintf(stderr, "%zu bytes are no DEVMODE\n", bytes.size());
        return 1;
    }
    OdString name(arguments[0]);
    OdChar* const printerName = const_cast<OdChar*>(name.c_str());
    HANDLE printer = nullptr;
    if (!::OpenPrinterW(printerName, &printer, nullptr))
    {
        std::fprintf(stderr, "the printer cannot be opened: error %lu\n", ::GetLastError());
        return 1;
    }
    // Some drivers write more than they announce, so both blocks have spare room.
    const LONG size = ::DocumentPropertiesW(nullptr, printer, printerName, nullptr, nullptr, 0);
    const std::size_t room = 2 * std::max(bytes.size(), static_cast<std::size_t>(std::max(size, 0L))) + 8192;
    std::vector<BYTE> input(room);
    std::vector<BYTE> output(room);
    std::copy(bytes.begin(), bytes.end(), input.begin());
    auto* const in = reinterpret_cast<DEVMODEW*>(input.data());
    auto* const out = reinterpret_cast<DEVMODEW*>(output.data());
    const LONG answer = ::DocumentPropertiesW(nullptr, printer, printerName, out, in, DM_IN_BUFFER | DM_OUT_BUFFER);
    ::ClosePrinter(printer);
    std::printf("answer: %ld\nsize: %u\nextra: %u\n", answer, out->dmSize, out->dmDriverExtra);
    std::printf("orientation: %d\npaper: %d\ncopies: %d\nscale: %d\nquality: %d\ncolor: %d\n", out->dmOrientation,
                out->dmPaperSize, out->dmCopies, out->dmScale, out->dmPrintQuality, out->dmColor);
    return answer == IDOK ? 0 : 1;
}

int resetDrivers(const ActionArguments& arguments)
{
    const OdString& name = arguments[0];
    const PrinterHandle printer = openPrinter(name.c_str());
    DevModeBlock block = printer ? defaultDevMode(printer.get(), name.c_str()) : DevModeBlock();
    if (!block.view())
    {
        std::fputs("the driver returns no default DEVMODE\n", stderr);
        return 1;
    }
    printOrientation("before", name);
    block.get()->dmOrientation = DMORIENT_LANDSCAPE;
    const DevModeMerge merge =
        mergeDevMode(nullptr, printer.get(), name.c_str(), block.view().bytes(), DM_IN_BUFFER | DM_OUT_BUFFER);
    std::printf("answer: %ld\n", merge.result);
    printOrientation("merged", name);
    plothost::resetDriverDefaults();
    printOrientation("reset", name);
    return 0;
}
