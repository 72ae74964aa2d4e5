#include "kernel/OdResBuf.h"

#include "kernel/OdRxObjectImpl.h"

namespace
{
// Gives the wrapper access to the constructor; everyone else uses newRb.
class ResBuf : public OdResBuf
{
public:
    explicit ResBuf(int restype) : OdResBuf(restype) {}
};
} // namespace

OdResBuf::OdResBuf(int restype) : m_restype(restype), m_value(emptyValue(restype)) {}

OdResBuf::~OdResBuf() = default;

OdResBuf::Value OdResBuf::emptyValue(int restype)
{
    switch (restype)
    {
    case kRtNone:
        return std::monostate();
    case kRtBool:
        return false;
    case kRtBinaryChunk:
        return OdBinaryData();
    case kRtDouble:
        return 0.0;
    case kRtInt16:
        return OdInt16(0);
    case kRtString:
        return OdString();
    case kRtInt32:
        return OdInt32(0);
    case kRtPointer:
        return static_cast<void*>(nullptr);
    default:
        throw OdError(eInvalidInput);
    }
}

template <class V>
OdResBufPtr OdResBuf::make(int restype, const V& value)
{
    OdResBufPtr buffer = newRb(restype);
    buffer->set(value);
    return buffer;
}

OdResBufPtr OdResBuf::newRb(int restype)
{
    return OdRxObjectImpl<ResBuf>::createObject(restype);
}

OdResBufPtr OdResBuf::newRb(int restype, const OdString& value)
{
    return make(restype, value);
}

OdResBufPtr OdResBuf::newRb(int restype, const OdChar* value)
{
    return make(restype, OdString(value));
}

OdResBufPtr OdResBuf::newRb(int restype, bool value)
{
    return make(restype, value);
}

OdResBufPtr OdResBuf::newRb(int restype, OdInt16 value)
{
    return make(restype, value);
}

OdResBufPtr OdResBuf::newRb(int restype, OdInt32 value)
{
    return make(restype, value);
}

OdResBufPtr OdResBuf::newRb(int restype, double value)
{
    return make(restype, value);
}

OdResBufPtr OdResBuf::newRb(int restype, const OdBinaryData& value)
{
    return make(restype, value);
}
