#include "host/GarmInterfaces.h"

#include "kernel/OdRxObjectImpl.h"

namespace
{
// Opens the constructor to the wrapper; everybody else goes through newGarmInterfaces.
class Interfaces : public GarmInterfaces
{
};
} // namespace

GarmInterfaces::~GarmInterfaces() = default;

GarmInterfacesPtr newGarmInterfaces()
{
    return OdRxObjectImpl<Interfaces>::createObject();
}

GarmInterfacesPtr getGarmInterfaces()
{
    // Never destroyed: the named values may be objects of modules that are gone at the end of the process.
    static GarmInterfaces* const interfaces = newGarmInterfaces().detach();
    return interfaces;
}

GarmInterfacesPtr getGarmInterfaces(OdEdCommandContext* context) noexcept
{
    return odrxCast<GarmInterfaces>(context);
}

GmMainInternalInterface* getMainInternalInterface()
{
    // Never destroyed: a background check may still search while the process ends.
    static auto* const mainInterface = new GmMainInternalInterface;
    return mainInterface;
}

GmDocInternalInterface* getDocInternalInterface(GarmInterfaces* interfaces) noexcept
{
    return interfaces ? &interfaces->document() : nullptr;
}

GmSysvarManagerInterface* getSysvarManagerInterface(GarmInterfaces* interfaces) noexcept
{
    return interfaces ? &interfaces->document().sysvarManager() : nullptr;
}

GmServicesManagerInterface* getServicesManagerInterface(GarmInterfaces* interfaces) noexcept
{
    return interfaces ? &interfaces->document().servicesManager() : nullptr;
}
