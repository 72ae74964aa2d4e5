#include "plothost/EditQuery.h"

#include "kernel/OdError.h"
#include "plothost/ModuleCommand.h"

#include <algorithm>
#include <iterator>

namespace plothost
{
namespace
{
const OdChar* const editCommand = OD_T("PC3EDIT");

// "paperName" is an argument too, so its presence means nothing.
constexpr const OdChar* answersOnly[] = {OD_T("fileName"), OD_T("result"), OD_T("canonicalModelName")};

void setArguments(const EditQuestion& question)
{
    // A value left from an earlier run must not look like a result.
    namedValues().clear();
    namedValues().set(OD_T("plotCfgName"), OdResBuf::newRb(kRtString, question.name));
    namedValues().set(OD_T("bSystemPrinter"), OdResBuf::newRb(kRtBool, question.isPrinter));
    if (!question.paperName.isEmpty())
        namedValues().set(OD_T("paperName"), OdResBuf::newRb(kRtString, question.paperName));
}

bool answered()
{
    return std::any_of(std::begin(answersOnly), std::end(answersOnly),
                       [](const OdChar* name) { return namedValues().get(name).get() != nullptr; });
}

EditReport readAnswers(const EditQuestion& question)
{
    EditReport report;
    report.name = question.name;
    report.isPrinter = question.isPrinter;
    report.fileName = namedAnswer(OD_T("fileName"))->getString();
    report.paperName = namedAnswer(OD_T("paperName"))->getString();
    report.result = namedAnswer(OD_T("result"))->getInt16();
    report.canonicalModelName = namedAnswer(OD_T("canonicalModelName"))->getString();
    return report;
}
} // namespace

EditAnswer edit(const EditQuestion& question)
{
    EditAnswer answer;
    setArguments(question);
    answer.problem = runModuleCommand(editCommand);
    if (!answer.problem.empty() || !answered())
        return answer;
    try
    {
        answer.report = readAnswers(question);
    }
    catch (const OdError&)
    {
        answer.problem = incompleteAnswer(editCommand);
    }
    return answer;
}
} // namespace plothost
