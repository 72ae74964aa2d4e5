#include "plothost/windows/Answers.h"

#include "plothost/windows/Console.h"

namespace plothost
{
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
    // Nobody is left to tell when this fails.
    static_cast<void>(writeError("plothost: " + line + "\n"));
}
} // namespace plothost
