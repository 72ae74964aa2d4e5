#pragma once

#include "host/GmDocInternalInterface.h"
#include "host/GmMainInternalInterface.h"
#include "kernel/OdEdCommand.h"

// The host's interface object, which a command gets as its context. Created by newGarmInterfaces. Each has its own
// document, so commands that run in different contexts do not see each other's named values.
class GarmInterfaces : public OdEdCommandContext
{
public:
    GmDocInternalInterface& document() noexcept { return m_document; }

protected:
    GarmInterfaces() = default;
    ~GarmInterfaces() override;

private:
    GmDocInternalInterface m_document;
};

using GarmInterfacesPtr = OdSmartPtr<GarmInterfaces>;

GarmInterfacesPtr newGarmInterfaces();

// The interface object of this process, in which the host runs its commands. It exists until the process ends.
GarmInterfacesPtr getGarmInterfaces();

// The context as the host's interface object; null if the context is null or another host's.
GarmInterfacesPtr getGarmInterfaces(OdEdCommandContext* context) noexcept;

// Never null.
GmMainInternalInterface* getMainInternalInterface();

// What an interface object gives access to; it lives as long as the object. Null for null.
GmDocInternalInterface* getDocInternalInterface(GarmInterfaces* interfaces) noexcept;
GmSysvarManagerInterface* getSysvarManagerInterface(GarmInterfaces* interfaces) noexcept;
GmServicesManagerInterface* getServicesManagerInterface(GarmInterfaces* interfaces) noexcept;
