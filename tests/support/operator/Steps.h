#pragma once

#include "kernel/OdString.h"
#include "tests/support/operator/CheckWindow.h"
#include "tests/support/operator/Hands.h"
#include "tests/support/operator/HostCommands.h"
#include "tests/support/operator/HostWindow.h"
#include "tests/support/operator/HostedModule.h"
#include "tests/support/operator/Script.h"
#include "tests/support/operator/UiThread.h"

#include <functional>
#include <memory>
#include <vector>

namespace editordriver
{
// What the verbs of a script do. Lines that tell something go to standard output as "name: value" in UTF-8.
class Steps
{
public:
    struct Place
    {
        UiThread& ui;
        CheckWindow& checks;
        HostedModule& module;
        const HostWindow* host; // null for a host without one
        OdString pictures;
        OdString requests; // where it asks for what is to be done outside
    };

    explicit Steps(const Place& place) : m_place(place), m_ui(place.ui), m_host(place.host), m_hands(place.ui) {}

    // Throws std::runtime_error when the step cannot be done.
    void run(const ScriptLine& line);

    // The verbs with what they take, for --help.
    static const char* help() noexcept;

private:
    bool runAction(const std::string& verb, std::string rest);
    bool runQuestion(const std::string& verb, std::string rest);
    bool runSession(const std::string& verb, const std::string& rest);
    bool runSurroundings(const std::string& verb, const std::string& rest);

    void unload() const;
    void start(std::function<std::string()> command);
    void awaitEnd();
    void startCheck(const OdString& device) const;
    void awaitCheck() const;
    void switchLanguage(const OdString& tag) const;
    void askOutside(const std::string& what) const;
    void takePicture(const std::string& name);
    void takePagePictures(const std::string& name);
    void tellTree() const;
    void tellCounts() const;

    Place m_place;
    UiThread& m_ui;
    const HostWindow* m_host;
    Hands m_hands;
    std::vector<std::shared_ptr<CommandRun>> m_commands; // those that run, each from within the one before
    bool m_skipping = false;                             // to the end of the last: it ended without a dialog
};
} // namespace editordriver
