#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

class OdRxModule;

namespace modulebench
{
// The module in this program's folder, loaded for the object's lifetime, and its commands as a host calls them.
// Everything throws std::runtime_error on failure.
class HostedModule
{
public:
    HostedModule();
    ~HostedModule();
    HostedModule(const HostedModule&) = delete;
    HostedModule& operator=(const HostedModule&) = delete;

    // PC3GETDEVMODE for a device, which must have a printer.
    void ask(const OdString& device) const;
    // The same in the background: the window gets the message checkedMessage.
    void check(const OdString& device, HWND window) const;
    // PC3EDIT for a configuration; returns when the editor has been closed.
    void edit(const OdString& configuration) const;

    // Whether the library is in the process, even without an object of this class.
    static bool isLoaded();

    static constexpr UINT checkedMessage = 1125;

private:
    OdRxModule* m_object = nullptr;
};
} // namespace modulebench
