#include "GarmPC3Editor/Commands/NamedValues.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdError.h"

#include <new>

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

OdResBufPtr NamedValues::get(const OdString& name) const
{
    return odrxCastOrThrow<OdResBuf>(m_service->get(name));
}

void* NamedValues::getPointer(const OdString& name) const
{
    return GmResBufExtention::getVoid(get(name));
}

void NamedValues::write(const NamedResults& results) const
{
    try
    {
        for (const auto& [name, value] : results.m_results)
            m_service->set(name, value);
    }
    catch (const std::bad_alloc&)
    {
        for (const auto& [name, value] : results.m_results)
            m_service->remove(name);
        throw;
    }
}

void NamedResults::addString(const OdString& name, const OdString& value)
{
    m_results.emplace_back(name, OdResBuf::newRb(kRtString, value));
}

void NamedResults::addBool(const OdString& name, bool value)
{
    m_results.emplace_back(name, OdResBuf::newRb(kRtBool, value));
}

void NamedResults::addInt16(const OdString& name, OdInt16 value)
{
    m_results.emplace_back(name, OdResBuf::newRb(kRtInt16, value));
}

void NamedResults::addBinaryChunk(const OdString& name, const OdBinaryData& value)
{
    m_results.emplace_back(name, OdResBuf::newRb(kRtBinaryChunk, value));
}
