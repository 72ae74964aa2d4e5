#include "bench/module/BareCalls.h"

#include "spooler/Handles.h"
#include "win32/windows/SystemHandles.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace modulebench
{
namespace
{
void require(bool succeeded, const char* call)
{
    if (!succeeded)
        throw std::runtime_error(std::string(call) + " failed with error " + std::to_string(::GetLastError()));
}

void readFile(const OdString& path)
{
    require(::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES, "GetFileAttributesW");
    const KernelHandle file(
        ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    require(static_cast<bool>(file), "CreateFileW");
    LARGE_INTEGER size = {};
    ::GetFileSizeEx(file.get(), &size);
    const auto bytes = static_cast<DWORD>(size.QuadPart);
    const std::unique_ptr<BYTE[]> content(new BYTE[bytes]);
    DWORD read = 0;
    const BOOL succeeded = ::ReadFile(file.get(), content.get(), bytes, &read, nullptr);
    require(succeeded && read == bytes, "ReadFile");
}

WCHAR* text(const OdString& string)
{
    return const_cast<WCHAR*>(string.c_str());
}

PrinterHandle open(const OdString& name)
{
    HANDLE printer = nullptr;
    require(::OpenPrinterW(text(name), &printer, nullptr), "OpenPrinterW");
    return PrinterHandle(printer);
}

template <class Query>
std::unique_ptr<BYTE[]> filled(const char* call, Query query)
{
    DWORD needed = 0;
    query(nullptr, 0, &needed);
    std::unique_ptr<BYTE[]> buffer(new BYTE[needed]);
    require(query(buffer.get(), needed, &needed), call);
    return buffer;
}

void askForDriver(const OdString& name)
{
    const PrinterHandle printer = open(name);
    filled("GetPrinterDriverW", [&printer](BYTE* buffer, DWORD size, DWORD* needed)
           { return ::GetPrinterDriverW(printer.get(), nullptr, 3, buffer, size, needed); });
}

std::unique_ptr<BYTE[]> recordOf(const PrinterHandle& printer, DWORD level)
{
    return filled("GetPrinterW", [&printer, level](BYTE* buffer, DWORD size, DWORD* needed)
                  { return ::GetPrinterW(printer.get(), level, buffer, size, needed); });
}

void askForPapers(const OdString& name)
{
    const PrinterHandle first = open(name);
    const PrinterHandle second = open(name);
    const std::unique_ptr<BYTE[]> record = recordOf(second, 2);
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2W*>(record.get());
    const auto ask = [&](WORD capability, void* output) {
        return ::DeviceCapabilitiesW(name.c_str(), info.pPortName, capability, static_cast<WCHAR*>(output),
                                     info.pDevMode);
    };
    const int codes = ask(DC_PAPERS, nullptr);
    const int names = ask(DC_PAPERNAMES, nullptr);
    require(codes >= 0 && names >= 0, "DeviceCapabilitiesW");
    std::vector<WORD> codeList(static_cast<std::size_t>(codes));
    std::vector<WCHAR> nameList(static_cast<std::size_t>(names) * 64);
    ask(DC_PAPERS, codeList.data());
    ask(DC_PAPERNAMES, nameList.data());
}

void askForPort(const OdString& name)
{
    recordOf(open(name), 5);
}

struct Check
{
    OdString file;
    OdString printer;
    HWND window;
    UINT message;
};

DWORD WINAPI runCheck(void* parameter) noexcept
{
    const std::unique_ptr<Check> check(static_cast<Check*>(parameter));
    bool succeeded = true;
    try
    {
        bareCallsOfCommand(check->file, check->printer);
    }
    catch (const std::exception&)
    {
        succeeded = false;
    }
    ::PostMessageW(check->window, check->message, succeeded, 0);
    return 0;
}
} // namespace

void bareCallsOfCommand(const OdString& file, const OdString& printer)
{
    readFile(file);
    askForDriver(printer);
    askForPapers(printer);
}

void bareCallsOfEditor(const OdString& file, const OdString& printer)
{
    readFile(file);
    askForDriver(printer);
    askForPort(printer);
}

std::vector<std::wstring> namesOfPrinters()
{
    DWORD returned = 0;
    const std::unique_ptr<BYTE[]> records =
        filled("EnumPrintersW", [&returned](BYTE* buffer, DWORD size, DWORD* needed)
               { return ::EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 1, buffer, size, needed, &returned); });
    std::vector<std::wstring> names;
    for (DWORD i = 0; i < returned; ++i)
        names.emplace_back(reinterpret_cast<const PRINTER_INFO_1W*>(records.get())[i].pName);
    // The second pass. Wine refuses it, so there is nothing to fill.
    DWORD needed = 0;
    ::EnumPrintersW(PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_SHARED | PRINTER_ENUM_NETWORK, nullptr, 1, nullptr, 0,
                    &needed, &returned);
    return names;
}

void bareCheck(const OdString& file, const OdString& printer, HWND window, UINT message)
{
    auto check = std::make_unique<Check>(Check{file, printer, window, message});
    const KernelHandle thread(::CreateThread(nullptr, 0, &runCheck, check.get(), 0, nullptr));
    require(static_cast<bool>(thread), "CreateThread");
    static_cast<void>(check.release()); // the thread's from here on
}
} // namespace modulebench
