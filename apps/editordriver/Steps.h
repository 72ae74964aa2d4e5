#pragma once

#include "editordriver/EditCommand.h"
#include "editordriver/Hands.h"
#include "editordriver/HostWindow.h"
#include "editordriver/Script.h"
#include "editordriver/UiThread.h"

#include <filesystem>
#include <memory>

namespace editordriver
{
// What the verbs of a script do. Lines that tell something go to standard output as "name: value" in UTF-8.
class Steps
{
public:
    Steps(UiThread& ui, const HostWindow* host, std::filesystem::path pictures)
        : m_ui(ui), m_host(host), m_pictures(std::move(pictures)), m_hands(ui)
    {
    }

    // Throws std::runtime_error when the step cannot be done.
    void run(const ScriptLine& line);

    // The verbs with what they take, for --help.
    static const char* help() noexcept;

private:
    bool runAction(const std::string& verb, std::string rest);
    bool runQuestion(const std::string& verb, std::string rest);
    bool runSession(const std::string& verb, const std::string& rest);

    void edit(EditRequest request);
    void awaitEnd();
    void takePicture(const std::string& name);
    void tellTree() const;
    void tellCounts() const;

    UiThread& m_ui;
    const HostWindow* m_host;
    std::filesystem::path m_pictures;
    Hands m_hands;
    std::shared_ptr<EditCommand> m_edit;
};
} // namespace editordriver
