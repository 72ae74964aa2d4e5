#pragma once

#include "plothost/Request.h"

#include <string>

namespace plothost
{
// Prints an answer that is yes; no when standard output does not take it.
ExitStatus answerYes(const std::string& text);

// Prints the one line on standard error that says why the answer is no.
ExitStatus answerNo(const std::string& why);

// Prints a line on standard error that changes nothing.
void note(const std::string& line);
} // namespace plothost
