#pragma once

#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"

// The named values of a command's context, each kind under its restype. Keeps the context while it lives.
class NamedValues
{
public:
    // Throws OdError_NotThatKindOfClass for a context that is not the host's interface object, OdError
    // (eNullObjectPointer) for none.
    explicit NamedValues(OdEdCommandContext* context);

    // The value, null when there is none. Throws OdError_NotThatKindOfClass for a value that is no OdResBuf, so values
    // are checked in the order in which they are fetched, before anything is done about missing ones.
    OdResBufPtr get(const OdChar* name) const;

    // The address in a pointer value, null when there is no value. Throws like get, and OdError (eInvalidResBuf) for a
    // value of another kind.
    void* getPointer(const OdChar* name) const;

    void setString(const OdChar* name, const OdString& value) const;          // restype 5005
    void setBool(const OdChar* name, bool value) const;                       // restype 290
    void setInt16(const OdChar* name, OdInt16 value) const;                   // restype 5003
    void setBinaryChunk(const OdChar* name, const OdBinaryData& value) const; // restype 310

private:
    GarmInterfacesPtr m_interfaces;
    GmServicesManagerInterface* m_service;
};
