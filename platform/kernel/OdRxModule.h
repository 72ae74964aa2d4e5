#pragma once

#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"

// The object through which the host speaks to a loaded module. It lives from the module's first
// odrxCreateModuleObject to deleteModule; references only lock it.
class OdRxModule : public OdRxObject
{
public:
    // The system's handle of the loaded library.
    virtual void* sysData() = 0;

    // Ends the object. The caller is the module loader, after uninitApp and before the library is let go.
    virtual void deleteModule() = 0;

    // The module puts its commands in, and takes them out again. Neither lets an exception out.
    virtual void initApp() = 0;
    virtual void uninitApp() = 0;

    // Full path of the module's file; empty when the system does not tell.
    virtual OdString moduleName() const = 0;

    // How many hold the module at this moment. It is not let go while it is locked.
    virtual void lock() noexcept = 0;
    virtual void unlock() noexcept = 0;
    virtual OdRefCount lockCount() const noexcept = 0;

protected:
    ~OdRxModule() override;
};

using OdRxModulePtr = OdSmartPtr<OdRxModule>;

// The version of this interface. A module answers with the version it was built against.
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
