#pragma once

#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"

// The object through which the host talks to a loaded module. It lives from the module's first odrxCreateModuleObject
// to deleteModule; references only lock it.
class OdRxModule : public OdRxObject
{
public:
    // The system's handle of the loaded library.
    virtual void* sysData() = 0;

    // Destroys the object. Called by the module loader, after uninitApp and before it frees the library.
    virtual void deleteModule() = 0;

    // Register the module's commands, and remove them again. Neither throws.
    virtual void initApp() = 0;
    virtual void uninitApp() = 0;

    // Full path of the module's file; empty if the system does not know it.
    virtual OdString moduleName() const = 0;

    // How many locks the module has at this moment. A locked module is not unloaded.
    virtual void lock() noexcept = 0;
    virtual void unlock() noexcept = 0;
    virtual OdRefCount lockCount() const noexcept = 0;

protected:
    ~OdRxModule() override;
};

using OdRxModulePtr = OdSmartPtr<OdRxModule>;

// The version of this interface. A module returns the version it was built against.
struct OdRxApiVersion
{
    int major = 4;
    int minor = 1;
    int majorBuild = 1;
    int minorBuild = 0;

    friend bool operator==(const OdRxApiVersion&, const OdRxApiVersion&) = default;
};

// What a module exports, under these names and with C linkage:
//   OdRxModule* odrxCreateModuleObject();
//   void odrxGetAPIVersion(int& major, int& minor, int& majorBuild, int& minorBuild);
using OdRxCreateModuleObject = OdRxModule* (*)();
using OdRxGetApiVersion = void (*)(int& major, int& minor, int& majorBuild, int& minorBuild);
