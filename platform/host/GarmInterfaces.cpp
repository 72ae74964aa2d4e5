#include "host/GarmInterfaces.h"

#include "kernel/OdRxObjectImpl.h"

namespace
{
// Gives the wrapper access to the constructor; everyone else uses newGarmInterfaces.
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
    // Never destroyed: the named values may be objects of modules that are already unloaded when the process ends.
    static GarmInterfaces* const interfaces = newGarmInterfaces().detach();
    return interfaces;
}

GarmInterfacesPtr getGarmInterfaces(OdEdCommandContext* context) noexcept
{
    return odrxCast<GarmInterfaces>(context);
}

GmMainInternalInterface* getMainInternalInterface()
{
    // Never destroyed: a background check may still be searching while the process ends.
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
