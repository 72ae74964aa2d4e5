#include "GarmPC3Editor/Commands/NamedValues.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdError.h"

namespace
{
GarmInterfacesPtr interfacesOf(OdEdCommandContext* context)
{
    if (!context)
        throw OdError(eNullObjectPointer);
    GarmInterfacesPtr interfaces = getGarmInterfaces(context);
    if (!interfaces)
        throw OdError_NotThatKindOfClass();
    return interfaces;
}
} // namespace

NamedValues::NamedValues(OdEdCommandContext* context)
    : m_interfaces(interfacesOf(context)), m_service(getServicesManagerInterface(m_interfaces.get()))
{
}

OdResBufPtr NamedValues::get(const OdChar* name) const
{
    return odrxCastOrThrow<OdResBuf>(m_service->get(name));
}

void* NamedValues::getPointer(const OdChar* name) const
{
    return GmResBufExtention::getVoid(get(name));
}

void NamedValues::setString(const OdChar* name, const OdString& value) const
{
    m_service->set(name, OdResBuf::newRb(kRtString, value));
}

void NamedValues::setBool(const OdChar* name, bool value) const
{
    m_service->set(name, OdResBuf::newRb(kRtBool, value));
}

void NamedValues::setInt16(const OdChar* name, OdInt16 value) const
{
    m_service->set(name, OdResBuf::newRb(kRtInt16, value));
}

void NamedValues::setBinaryChunk(const OdChar* name, const OdBinaryData& value) const
{
    m_service->set(name, OdResBuf::newRb(kRtBinaryChunk, value));
}
