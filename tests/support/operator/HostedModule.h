#pragma once

#include <string>

class OdRxModule;

namespace editordriver
{
// The module beside this program, brought in and taken out by the host's loader. On the thread of the windows only.
class HostedModule
{
public:
    HostedModule() = default;
    ~HostedModule();
    HostedModule(const HostedModule&) = delete;
    HostedModule& operator=(const HostedModule&) = delete;

    // Throws std::runtime_error with the reason when that does not work.
    void load();

    // "" or why it is not unloaded.
    std::string unload();

    // Whether its code is in the process, loaded by us or held by a thread of its own. From any thread.
    static bool isInProcess() noexcept;

private:
    OdRxModule* m_object = nullptr;
};
} // namespace editordriver
