#pragma once

#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"

#include <utility>
#include <vector>

// What a command returns, in the order in which it is written, each kind under its restype. A name may come twice.
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

// The named values of a command's context. Keeps the context while it lives.
class NamedValues
{
public:
    // Throws OdError_NotThatKindOfClass for a context that is not the host's interface object, OdError
    // (eNullObjectPointer) for none.
    explicit NamedValues(OdEdCommandContext* context);

    // The value, null when there is none. Throws OdError_NotThatKindOfClass for a value that is no OdResBuf, so values
    // are checked in the order in which they are fetched, before anything is done about missing ones.
    OdResBufPtr get(const OdString& name) const;

    // The address in a pointer value, null when there is no value. Throws like get, and OdError (eInvalidResBuf) for a
    // value of another kind.
    void* getPointer(const OdString& name) const;

    // Writes all of them. When memory runs out, which is thrown, none of the names has a value: that is how a host sees
    // that a command failed.
    void write(const NamedResults& results) const;

private:
    GarmInterfacesPtr m_interfaces;
    GmServicesManagerInterface* m_service;
};
