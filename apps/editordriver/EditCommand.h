#pragma once

#include "kernel/OdString.h"

#include <atomic>
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

// One run of PC3EDIT as the host does it. Call run() on the thread of the windows; the rest from any thread once
// ended() says so.
class EditCommand
{
public:
    void run(const EditRequest& request) noexcept;
    bool ended() const noexcept { return m_ended; }

    // The values that it left as "name: value" lines, "outputs: none" when there are none; or what went wrong.
    const std::string& report() const noexcept { return m_report; }

private:
    std::atomic<bool> m_ended = false;
    std::string m_report;
};
} // namespace editordriver
