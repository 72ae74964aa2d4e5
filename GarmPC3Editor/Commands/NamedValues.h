#pragma once

#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"

#include <utility>
#include <vector>

// The results of a command in the order in which they are written, each kind under its restype. A name may occur twice.
class NamedResults
{
public:
    void addString(const OdString& name, const OdString& value);          // restype 5005
    void addBool(const OdString& name, bool value);                       // restype 290
    void addInt16(const OdString& name, OdInt16 value);                   // restype 5003
    void addBinaryChunk(const OdString& name, const OdBinaryData& value); // restype 310

private:
    friend class NamedValues;

    std::vector<std::pair<OdString, OdResBufPtr>> m_results;
};

// The named values of a command's context, which it keeps alive.
class NamedValues
{
public:
    // Throws OdError_NotThatKindOfClass for a context that is not the host's interface object, OdError
    // (eNullObjectPointer) for none.
    explicit NamedValues(OdEdCommandContext* context);

    // The value, or null if there is none. Throws OdError_NotThatKindOfClass if it is not an OdResBuf, so values are
    // checked in the order in which they are fetched, before missing ones are handled.
    OdResBufPtr get(const OdString& name) const;

    // The address in a pointer value, or null if there is no value. Throws like get, and OdError (eInvalidResBuf) for
    // another kind of value.
    void* getPointer(const OdString& name) const;

    // Writes all of them. If memory runs out, it throws and none of the names has a value, which tells the host that
    // the command failed.
    void write(const NamedResults& results) const;

private:
    GarmInterfacesPtr m_interfaces;
    GmServicesManagerInterface* m_service;
};
