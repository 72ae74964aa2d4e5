#include "plothost/PaperList.h"

#include "kernel/OdText.h"
#include "spooler/DevModeView.h"

#include <algorithm>

namespace plothost
{
std::vector<OdString> paperList(const std::vector<DriverPaper>& driversPapers, const OdString& ownPaper)
{
    std::vector<OdString> papers;
    papers.reserve(driversPapers.size() + 2);
    for (const DriverPaper& paper : driversPapers)
        papers.push_back(paper.name);
    if (!paperNamed(papers, customPaper))
        papers.emplace_back(customPaper);
    if (!ownPaper.isEmpty() && !paperNamed(papers, ownPaper))
        papers.insert(papers.begin(), ownPaper);
    return papers;
}

std::optional<std::size_t> paperNamed(const std::vector<OdString>& papers, const OdString& name)
{
    auto found = std::find(papers.begin(), papers.end(), name);
    if (found == papers.end())
        found = std::find_if(papers.begin(), papers.end(),
                             [&name](const OdString& paper) { return odEqualNoCase(paper, name); });
    if (found == papers.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - papers.begin());
}

OdString paperOf(std::span<const BYTE> devMode, const std::vector<DriverPaper>& driversPapers)
{
    const DevModeView view(devMode);
    if (!view.has(DM_PAPERSIZE))
        return {};
    const auto code = static_cast<WORD>(view.fields().dmPaperSize);
    const auto found = std::find_if(driversPapers.begin(), driversPapers.end(),
                                    [code](const DriverPaper& paper) { return paper.code == code; });
    return found == driversPapers.end() ? OdString() : found->name;
}
} // namespace plothost
