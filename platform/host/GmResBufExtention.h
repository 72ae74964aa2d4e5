#pragma once

#include "kernel/OdResBuf.h"

// Result buffers that hold an address in this process, such as a window handle.
namespace GmResBufExtention
{
// The address; null for null. Throws OdError if the buffer holds a value of another kind.
void* getVoid(const OdResBuf* buffer);
void* getVoid(const OdResBufPtr& buffer);

// A new buffer with the address.
OdResBufPtr newVoid(void* value);
} // namespace GmResBufExtention
