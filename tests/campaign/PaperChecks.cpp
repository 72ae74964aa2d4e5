#include "campaign/Checks.h"

#include <algorithm>
#include <iterator>

namespace campaign
{
namespace
{
constexpr int firstOwnCode = 256; // lower codes mean the same on every printer
constexpr int longestFormName = 31;

const ListedPaper* firstNamed(const std::vector<ListedPaper>& papers, const OdString& name)
{
    const auto found = std::ranges::find_if(papers, [&](const ListedPaper& p) { return odEqualNoCase(p.name, name); });
    return found == papers.end() ? nullptr : &*found;
}

const ListedPaper* firstCoded(const std::vector<ListedPaper>& papers, WORD code)
{
    const auto found = std::ranges::find(papers, code, &ListedPaper::code);
    return found == papers.end() ? nullptr : &*found;
}

// The name that a paper must have after the import, and the rule if that differs from the selected name. A code of the
// system decides alone; a code of the driver is identified by the form name, unless the name is too long for it.
struct ExpectedName
{
    OdString name;
    const char* rule;
};

ExpectedName expectedName(const ListedPaper& chosen, const std::vector<ListedPaper>& papers)
{
    const ListedPaper& meant = *firstNamed(papers, chosen.name);
    const char* const rule = &meant == &chosen ? "code listed twice" : "name listed twice";
    if (meant.code < firstOwnCode)
        return {firstCoded(papers, meant.code)->name, rule};
    if (meant.name.getLength() > longestFormName)
        return {OdString(odFromUtf8("User" + std::to_string(meant.code))), "name longer than a form name"};
    return {meant.name, rule};
}

std::string wordsFor(const ListedPaper& paper)
{
    return "'" + odToUtf8(paper.name) + "' (" + std::to_string(paper.code) + ")";
}

void reportList(const std::vector<ListedPaper>& papers, Transcript& transcript)
{
    transcript.fact("papers", papers.size());
    transcript.fact("own papers",
                    std::ranges::count_if(papers, [](const ListedPaper& p) { return p.code >= firstOwnCode; }));
    for (const ListedPaper& paper : papers)
        if (firstCoded(papers, paper.code) != &paper)
            transcript.fact("code listed twice", wordsFor(*firstCoded(papers, paper.code)) + ", " + wordsFor(paper));
    for (const ListedPaper& paper : papers)
        if (firstNamed(papers, paper.name) != &paper)
            transcript.fact("name listed twice", wordsFor(*firstNamed(papers, paper.name)) + ", " + wordsFor(paper));
    for (const ListedPaper& paper : papers)
        if (paper.name.getLength() > longestFormName)
            transcript.fact("long name", wordsFor(paper));
}

std::string wordsFor(double width, double length)
{
    return std::to_string(width) + " x " + std::to_string(length) + " mm";
}

// The imported size must be that of the device context, which should be the one the driver lists.
void checkSize(const GmPlotCfg3& configuration, const ListedPaper& paper, const Merged& answer, const Driver& driver,
               Transcript& transcript)
{
    const GmMediaNode& media = configuration.m_media;
    const GmMediaBoundsNode& bounds = media.m_size.m_media_description.m_media_bounds;
    const Sheet sheet = driver.sheet(answer.block.view());
    const std::string sizes = wordsFor(paper) + " is listed with " + wordsFor(paper.width, paper.length) +
                              ", its device context has " + wordsFor(sheet.width, sheet.length);
    const bool isSheet = sameLength(bounds.m_urx, sheet.width) && sameLength(bounds.m_ury, sheet.length) &&
                         sameLength(media.m_actual_printable_bounds_llx, sheet.left) &&
                         sameLength(media.m_actual_printable_bounds_lly, sheet.bottom);
    if (sheet.width <= 0 || !isSheet)
        transcript.failed("paper size", sizes + ", taken over is " + wordsFor(bounds.m_urx, bounds.m_ury),
                          {answer.call});
    else if (sameLength(bounds.m_urx, paper.width) && sameLength(bounds.m_ury, paper.length))
        transcript.held("paper size");
    else
    {
        transcript.heldByRule("paper size", "driver lists another size");
        transcript.fact("driver lists another size", sizes);
    }
}

// The driver must return the code of the paper that a configuration names.
bool answersCode(const Merged& answer, const ListedPaper& chosen, const ListedPaper& meant, const char* check,
                 Transcript& transcript)
{
    const WORD code = static_cast<WORD>(answer.block.view().fields().dmPaperSize);
    return transcript.require(check, answer.isBlock(), wordsFor(chosen) + " is refused", {answer.call}) &&
           transcript.require(check, code == meant.code,
                              wordsFor(chosen) + " was chosen and the driver answers code " + std::to_string(code),
                              {answer.call});
}

void checkName(const GmPlotCfg3& configuration, const ListedPaper& paper, const std::vector<ListedPaper>& papers,
               const Merged& answer, Transcript& transcript)
{
    const OdString& name = configuration.m_media.m_size.m_name;
    const ExpectedName expected = expectedName(paper, papers);
    if (!(name == expected.name))
        transcript.failed("paper name", wordsFor(paper) + " comes back as '" + odToUtf8(name) + "'", {answer.call});
    else if (name == paper.name)
        transcript.held("paper name");
    else
        transcript.heldByRule("paper name", expected.rule);
}

void checkPaper(GmPlotCfg3& configuration, const ListedPaper& paper, const std::vector<ListedPaper>& papers,
                const Driver& driver, Transcript& transcript)
{
    // Of two papers with the same name only the first can be selected by name.
    const ListedPaper& meant = *firstNamed(papers, paper.name);

    // The selection is made in copies, as in a file and in the dialog of the driver: the configuration imports it from
    // the result of the driver.
    GmPlotCfg3 choice(configuration);
    choice.m_media.m_size.m_name = paper.name;
    choice.m_devModeFields = 0; // as after reading a file
    if (answersCode(driver.merge(blockOf(choice)), paper, meant, "paper in a file", transcript))
        transcript.held("paper in a file");

    choice.m_devModeFields = configuration.m_devModeFields;
    const Merged answer = driver.merge(blockOf(choice));
    if (!answersCode(answer, paper, meant, "paper", transcript) ||
        !takeBack(configuration, answer, driver, "paper", transcript) ||
        // Whatever its name is now, the configuration and its file must still mean the selected paper.
        !answersCode(driver.merge(blockOf(configuration)), paper, meant, "paper", transcript))
        return;
    GmPlotCfg3 saved(configuration);
    saved.m_devModeFields = 0;
    if (!answersCode(driver.merge(blockOf(saved)), paper, meant, "paper", transcript))
        return;
    transcript.held("paper");
    checkName(configuration, paper, papers, answer, transcript);
    checkSize(configuration, meant, answer, driver, transcript);
}
} // namespace

void checkPapers(GmPlotCfg3& configuration, const Driver& driver, Transcript& transcript)
{
    const std::vector<ListedPaper> papers = driver.papers();
    reportList(papers, transcript);
    if (transcript.require("papers", !papers.empty(), "no papers are listed", driver.interview()))
        transcript.held("papers");
    for (const ListedPaper& paper : papers)
        checkPaper(configuration, paper, papers, driver, transcript);
}
} // namespace campaign
