#include "plothost/windows/Console.h"

#include "kernel/OdText.h"

#include <algorithm>
#include <windows.h>

namespace plothost
{
namespace
{
// A console accepts only a limited amount at a time.
constexpr std::size_t mostUnits = 8192;

bool writeConsole(HANDLE handle, OdStringView text)
{
    while (!text.empty())
    {
        std::size_t count = std::min(text.size(), mostUnits);
        // Both halves of a surrogate pair are written together.
        if (count < text.size() && count > 1 && text[count - 1] >= 0xD800 && text[count - 1] <= 0xDBFF)
            --count;
        DWORD written = 0;
        if (!::WriteConsoleW(handle, text.data(), static_cast<DWORD>(count), &written, nullptr) || written == 0)
            return false;
        text.remove_prefix(std::min<std::size_t>(written, text.size()));
    }
    return true;
}

bool writeBytes(HANDLE handle, std::string_view bytes)
{
    while (!bytes.empty())
    {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20U));
        if (!::WriteFile(handle, bytes.data(), count, &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool write(DWORD which, std::string_view utf8) noexcept
{
    const HANDLE handle = ::GetStdHandle(which);
    // cppcheck-suppress knownConditionTrueFalse ; it takes the value for 0, but the value is -1
    if (!handle || handle == INVALID_HANDLE_VALUE)
        return utf8.empty();
    try
    {
        DWORD mode = 0;
        return ::GetConsoleMode(handle, &mode) ? writeConsole(handle, odFromUtf8(utf8)) : writeBytes(handle, utf8);
    }
    catch (...)
    {
        return false; // memory ran out
    }
}
} // namespace

bool writeOutput(std::string_view utf8) noexcept
{
    return write(STD_OUTPUT_HANDLE, utf8);
}

bool writeError(std::string_view utf8) noexcept
{
    return write(STD_ERROR_HANDLE, utf8);
}

ExitStatus answerYes(const std::string& text)
{
    return writeOutput(text) ? exitYes : answerNo("standard output cannot be written");
}

ExitStatus answerNo(const std::string& why)
{
    note(why);
    return exitNo;
}

void note(const std::string& line)
{
    // A failure here cannot be reported anywhere.
    static_cast<void>(writeError("plothost: " + line + "\n"));
}

bool canShowWindows()
{
    const HWND window = ::CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                          ::GetModuleHandleW(nullptr), nullptr);
    if (!window)
        return false;
    ::DestroyWindow(window);
    return true;
}
} // namespace plothost
