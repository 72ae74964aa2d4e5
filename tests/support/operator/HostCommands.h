#pragma once

#include "kernel/OdString.h"

#include <atomic>
#include <functional>
#include <optional>
#include <string>

namespace editordriver
{
struct EditRequest
{
    OdString name;
    bool isPrinter = false;
    std::optional<OdString> paper = {};
};

// The commands as the host runs them; on the thread of the windows. Answered are the values that the command left, as
// lines "output NAME: VALUE", or "outputs: none". Both throw what the commands throw.
std::string runEdit(const EditRequest& request);
std::string runGetDevMode(const OdString& device);

// The same with a window (an HWND) for the message: starts the check and returns.
std::string startCheck(const OdString& device, void* window);

// One run of a command. Call run() on the thread of the windows; the rest from any thread once ended() says so.
class CommandRun
{
public:
    void run(const std::function<std::string()>& command) noexcept;
    bool ended() const noexcept { return m_ended; }

    // What the command answered, or what went wrong.
    const std::string& report() const noexcept { return m_report; }

private:
    std::atomic<bool> m_ended = false;
    std::string m_report;
};
} // namespace editordriver
