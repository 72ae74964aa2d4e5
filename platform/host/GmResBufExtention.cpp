#include "host/GmResBufExtention.h"

void* GmResBufExtention::getVoid(const OdResBuf* buffer)
{
    return buffer ? buffer->getPointer() : nullptr;
}

void* GmResBufExtention::getVoid(const OdResBufPtr& buffer)
{
    return getVoid(buffer.get());
}

OdResBufPtr GmResBufExtention::newVoid(void* value)
{
    OdResBufPtr buffer = OdResBuf::newRb(kRtPointer);
    buffer->setPointer(value);
    return buffer;
}
