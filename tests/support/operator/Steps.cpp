#include "tests/support/operator/Steps.h"

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "files/FileChecks.h"
#include "host/CGarmPath.h"
#include "host/GmLanguage.h"
#include "kernel/OdText.h"
#include "tests/support/operator/Picture.h"
#include "tests/support/operator/Printers.h"
#include "tests/support/processcounts/ProcessCounts.h"

#include <cstdio>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <utility>

namespace editordriver
{
namespace
{
std::wstring wide(const std::string& text)
{
    return odFromUtf8(text);
}

// A text that may have line breaks, on one line.
std::string oneLine(const std::wstring& text)
{
    std::string result;
    for (const char c : odToUtf8(text))
    {
        if (c == '\n')
            result += "\\n";
        else if (c != '\r')
            result += c;
    }
    return result;
}

void tell(const std::string& name, const std::string& value)
{
    std::printf("%s: %s\n", name.c_str(), value.c_str());
    std::fflush(stdout);
}

std::string repeated(const std::string& text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}
} // namespace

const char* Steps::help() noexcept
{
    return R"(Sessions
  edit NAME               starts PC3EDIT for a configuration of the search path, also from within another one
  edit-printer NAME       starts it for a new configuration of a printer
  edit-paper PAPER|NAME   starts it for a configuration and the paper
  get-devmode DEVICE      starts PC3GETDEVMODE
  end                     waits until the one that was started last has ended, and tells what it left
  start-check DEVICE      the same in the background; it returns at once
  checked                 waits for the message of a check, and tells what it said
  load                    the module, which is loaded at the beginning
  unload                  tells "done" or why not
  quit                    ends the host's message loop
  gone                    waits until its code has left the process
  in-process              tells whether that is there
  language TAG            switches the host's language
  outside TEXT            has the caller do something, and waits until it is done
  add-printer NAME|DRIVER, delete-printer NAME
Waiting
  dialog                  for a dialog in which one can work, other than the present one
  opened                  the same; when the command ended without one, goes on at its "end"
  closed                  until the present dialog is gone
Actions (the control must be visible and enabled)
  click ID, send ID, post ID, escape, tab INDEX, entry TYPE, choose ID INDEX, slide ID POSITION
  type ID TEXT, type-many ID COUNT TEXT, file-name PATH
Questions
  title, box, text ID, value ID, choices ID, enabled ID, present ID, which-tab, tree, controls, owner-enabled, counts
  host-value ID           of the window that the editor is opened from
  picture NAME            writes NAME.bmp
  page-pictures NAME      selects each entry of the tree that has a page, and writes NAME-TYPE.bmp
)";
}

void Steps::run(const ScriptLine& line)
{
    // What is done outside may have to be undone.
    if (m_skipping && line.verb != "end" && line.verb != "outside")
        return;
    m_skipping = m_skipping && line.verb != "end";
    if (!runSession(line.verb, line.rest) && !runAction(line.verb, line.rest) && !runQuestion(line.verb, line.rest))
        throw std::runtime_error("there is no such verb");
}

bool Steps::runSession(const std::string& verb, const std::string& rest)
{
    const std::size_t bar = rest.find('|');
    const std::string first = rest.substr(0, bar);
    const std::string second = bar == std::string::npos ? std::string() : rest.substr(bar + 1);
    if (verb == "edit")
        start([request = EditRequest{OdString(odFromUtf8(rest))}] { return runEdit(request); });
    else if (verb == "edit-printer")
        start([request = EditRequest{OdString(odFromUtf8(rest)), true}] { return runEdit(request); });
    else if (verb == "edit-paper")
        start([request = EditRequest{OdString(odFromUtf8(second)), false, OdString(odFromUtf8(first))}]
              { return runEdit(request); });
    else if (verb == "get-devmode")
        start([device = OdString(odFromUtf8(rest))] { return runGetDevMode(device); });
    else if (verb == "end")
        awaitEnd();
    else if (!runSurroundings(verb, rest))
        return false;
    return true;
}

bool Steps::runSurroundings(const std::string& verb, const std::string& rest)
{
    const std::size_t bar = rest.find('|');
    const std::string first = rest.substr(0, bar);
    const std::string second = bar == std::string::npos ? std::string() : rest.substr(bar + 1);
    if (verb == "start-check")
        startCheck(OdString(odFromUtf8(rest)));
    else if (verb == "checked")
        awaitCheck();
    else if (verb == "load")
        m_ui.doNow([this] { m_place.module.load(); });
    else if (verb == "unload")
        unload();
    else if (verb == "quit")
        m_ui.quit();
    else if (verb == "gone")
        await("the module to go", [] { return !HostedModule::isInProcess(); });
    else if (verb == "language")
        switchLanguage(OdString(odFromUtf8(rest)));
    else if (verb == "outside")
        askOutside(rest);
    else if (verb == "add-printer")
        addPrinter(wide(first), wide(second));
    else if (verb == "delete-printer")
        deletePrinter(wide(rest));
    else if (verb == "dialog")
        m_hands.awaitDialog();
    else if (verb == "opened")
        m_skipping = !m_hands.awaitDialogUnless([this] { return m_commands.empty() || m_commands.back()->ended(); });
    else if (verb == "closed")
        m_hands.awaitClosed();
    else
        return false;
    return true;
}

bool Steps::runAction(const std::string& verb, std::string rest)
{
    const auto number = [&rest] { return numberOf(takeWord(rest)); };
    if (verb == "click")
        m_hands.click(number());
    else if (verb == "send")
        m_hands.sendCommand(number());
    else if (verb == "post")
        m_hands.postCommand(number());
    else if (verb == "escape")
        m_hands.pressEscape();
    else if (verb == "tab")
        m_hands.showTab(number());
    else if (verb == "entry")
        m_hands.selectEntry(number());
    else if (verb == "choose" || verb == "slide")
    {
        const int id = number();
        const int to = number();
        verb == "choose" ? m_hands.choose(id, to) : m_hands.slide(id, to);
    }
    else if (verb == "type")
    {
        const int id = number();
        m_hands.type(id, wide(rest));
    }
    else if (verb == "type-many")
    {
        const int id = number();
        const int count = number();
        m_hands.type(id, wide(repeated(rest, count)));
    }
    else if (verb == "file-name")
        m_hands.typeFileName(wide(rest));
    else
        return false;
    return true;
}

bool Steps::runQuestion(const std::string& verb, std::string rest)
{
    const std::string name = rest.empty() ? verb : verb + " " + rest;
    const auto number = [&rest] { return numberOf(takeWord(rest)); };
    const auto tellFlag = [&name](bool value) { tell(name, value ? "yes" : "no"); };
    if (verb == "title")
        tell(name, oneLine(m_hands.title()));
    else if (verb == "box")
        tell(name, oneLine(m_hands.boxText()));
    else if (verb == "text")
        tell(name, oneLine(m_hands.text(number())));
    else if (verb == "value")
        tell(name, std::to_string(m_hands.value(number())));
    else if (verb == "choices")
        for (const std::wstring& choice : m_hands.choices(number()))
            tell(name, oneLine(choice));
    else if (verb == "enabled")
        tellFlag(m_hands.isEnabled(number()));
    else if (verb == "present")
        tellFlag(m_hands.hasControl(number()));
    else if (verb == "controls")
        for (const HWND control : m_hands.controls())
            tell("control " + std::to_string(::GetDlgCtrlID(control)), oneLine(textOf(control)));
    else if (verb == "which-tab")
        tell(name, std::to_string(m_hands.tab()));
    else if (verb == "owner-enabled")
        tellFlag(m_host && ::IsWindowEnabled(m_host->handle()));
    else if (verb == "host-value")
        tell(name, std::to_string(m_host ? Hands::valueOf(m_host->control(number())) : -1));
    else if (verb == "tree")
        tellTree();
    else if (verb == "in-process")
        tellFlag(HostedModule::isInProcess());
    else if (verb == "counts")
        tellCounts();
    else if (verb == "picture")
        takePicture(rest);
    else if (verb == "page-pictures")
        takePagePictures(rest);
    else
        return false;
    return true;
}

void Steps::start(std::function<std::string()> command)
{
    m_commands.push_back(std::make_shared<CommandRun>());
    m_ui.start([run = m_commands.back(), work = std::move(command)] { run->run(work); });
}

void Steps::awaitEnd()
{
    if (m_commands.empty())
        throw std::runtime_error("no command is running");
    await("the end of the command", [this] { return m_commands.back()->ended(); });
    std::fputs(m_commands.back()->report().c_str(), stdout);
    std::fflush(stdout);
    m_commands.pop_back();
}

void Steps::unload() const
{
    std::string whyNot;
    m_ui.doNow([&] { whyNot = m_place.module.unload(); });
    tell("unload", whyNot.empty() ? "done" : whyNot);
}

void Steps::startCheck(const OdString& device) const
{
    std::string report;
    m_ui.doNow([&] { report = editordriver::startCheck(device, m_place.checks.handle()); });
    std::fputs(report.c_str(), stdout);
    std::fflush(stdout);
}

void Steps::awaitCheck() const
{
    std::optional<bool> found;
    await("the message of a check",
          [&]
          {
              found = m_place.checks.next();
              return found.has_value();
          });
    tell("checked", *found ? "found" : "not found");
}

void Steps::switchLanguage(const OdString& tag) const
{
    bool switched = false;
    m_ui.doNow([&] { switched = setUiLanguage(tag); });
    tell("language " + odToUtf8(tag), switched ? "switched" : "refused");
}

void Steps::askOutside(const std::string& what) const
{
    if (m_place.requests.isEmpty())
        throw std::runtime_error("there is nobody to ask: no --requests");
    const OdString request = CGarmPath::join(m_place.requests, OD_T("request"));
    const OdString draft = CGarmPath::join(m_place.requests, OD_T("request.draft"));
    if (!(std::ofstream(draft.c_str(), std::ios::binary) << what << std::flush))
        throw std::runtime_error("the request cannot be written");
    // At once whole, and gone when it is done.
    if (!::MoveFileExW(draft.c_str(), request.c_str(), MOVEFILE_REPLACE_EXISTING))
        throw std::runtime_error("the request cannot be given its name");
    await("what is done outside", [&] { return !isRegularFile(request); });
}

void Steps::takePicture(const std::string& name)
{
    const HWND dialog = m_hands.dialog();
    m_ui.doNow([&] { savePicture(dialog, CGarmPath::join(m_place.pictures, OdString(wide(name) + L".bmp"))); });
}

void Steps::takePagePictures(const std::string& name)
{
    for (const TreeEntry& entry : m_hands.entries())
    {
        if (!deviceRow(entry.type)->dialog)
            continue;
        m_hands.selectEntry(entry.type);
        takePicture(name + "-" + std::to_string(entry.type));
    }
}

void Steps::tellTree() const
{
    for (const TreeEntry& entry : m_hands.entries())
        tell("entry " + std::to_string(entry.type),
             std::to_string(entry.depth) + (entry.marked ? " marked " : " plain ") + oneLine(entry.label));
}

void Steps::tellCounts() const
{
    m_ui.settle();
    tell("handles", std::to_string(openSystemHandles()));
    tell("gdi", std::to_string(gdiObjects()));
    tell("windows", std::to_string(windowsOf(m_ui.id())));
}
} // namespace editordriver
