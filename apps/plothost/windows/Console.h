#pragma once

#include "plothost/Request.h"

#include <string>
#include <string_view>

// What the program prints, and whether it can show windows.
namespace plothost
{
// Standard output and standard error take UTF-8: a console gets it as UTF-16, whatever its code page is; a file or pipe
// gets the bytes. False when they could not all be written.
bool writeOutput(std::string_view utf8) noexcept;
bool writeError(std::string_view utf8) noexcept;

// Prints an answer that is yes; no when standard output does not take it.
ExitStatus answerYes(const std::string& text);

// Prints the one line on standard error that says why the answer is no.
ExitStatus answerNo(const std::string& why);

// Prints a line on standard error that does not change the exit status.
void note(const std::string& line);

// Whether the system shows windows to this program at all; it does not without a display.
bool canShowWindows();

// The line for the user when it does not.
inline constexpr const char* noDisplay = "there is no display to show a window on";
} // namespace plothost
