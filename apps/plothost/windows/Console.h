#pragma once

#include "plothost/Request.h"

#include <string>
#include <string_view>

// What the program prints, and whether it can show windows.
namespace plothost
{
// These take UTF-8: a console gets it as UTF-16, whatever its code page; a file or pipe gets the bytes. Return false if
// not everything could be written.
bool writeOutput(std::string_view utf8) noexcept;
bool writeError(std::string_view utf8) noexcept;

// Prints a result; returns exitNo if it cannot be written.
ExitStatus answerYes(const std::string& text);

// Prints one line on standard error that says why a request failed.
ExitStatus answerNo(const std::string& why);

// Prints a line on standard error that does not change the exit status.
void note(const std::string& line);

// Whether the program can show windows; it cannot without a display.
bool canShowWindows();

// The message if it cannot.
inline constexpr const char* noDisplay = "there is no display to show a window on";
} // namespace plothost
