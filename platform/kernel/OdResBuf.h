#pragma once

#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"
#include "kernel/OdTypes.h"

#include <variant>

// What a result buffer holds.
enum OdResBufType : int
{
    kRtNone = 5000,
    kRtBool = 290,
    kRtBinaryChunk = 310,
    kRtDouble = 5001,
    kRtInt16 = 5003,
    kRtString = 5005,
    kRtInt32 = 5010,
    kRtPointer = 5020, // an address in this process; never stored
};

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

// One value, of the kind that its restype names. Created by newRb, held by OdResBufPtr.
//
// A getter for another kind than the value's, and a setter for another kind than the restype, throw OdError
// (eInvalidResBuf); nothing is converted. A new buffer without a value holds "", false, 0, no bytes or a null pointer.
class OdResBuf : public OdRxObject
{
public:
    // Throws OdError (eInvalidInput) for a restype that is not in OdResBufType.
    static OdResBufPtr newRb(int restype = kRtNone);

    // With a value of the restype's type: 5005 takes text, 290 bool, 5003 OdInt16, and so on.
    static OdResBufPtr newRb(int restype, const OdString& value);
    static OdResBufPtr newRb(int restype, const OdChar* value);
    static OdResBufPtr newRb(int restype, bool value);
    static OdResBufPtr newRb(int restype, OdInt16 value);
    static OdResBufPtr newRb(int restype, OdInt32 value);
    static OdResBufPtr newRb(int restype, double value);
    static OdResBufPtr newRb(int restype, const OdBinaryData& value);

    // The object as a result buffer, or null if it is not one.
    static OdResBufPtr cast(OdRxObject* object) noexcept { return odrxCast<OdResBuf>(object); }

    int restype() const noexcept { return m_restype; }

    const OdString& getString() const { return get<OdString>(); }
    bool getBool() const { return get<bool>(); }
    OdInt16 getInt16() const { return get<OdInt16>(); }
    OdInt32 getInt32() const { return get<OdInt32>(); }
    double getDouble() const { return get<double>(); }
    const OdBinaryData& getBinaryChunk() const { return get<OdBinaryData>(); }
    void* getPointer() const { return get<void*>(); }

    void setString(const OdString& value) { set(value); }
    void setBool(bool value) { set(value); }
    void setInt16(OdInt16 value) { set(value); }
    void setInt32(OdInt32 value) { set(value); }
    void setDouble(double value) { set(value); }
    void setBinaryChunk(const OdBinaryData& value) { set(value); }
    void setPointer(void* value) { set(value); }

protected:
    explicit OdResBuf(int restype);
    ~OdResBuf() override;

private:
    using Value = std::variant<std::monostate, bool, OdInt16, OdInt32, double, OdString, OdBinaryData, void*>;

    static Value emptyValue(int restype);

    template <class V>
    const V& get() const
    {
        if (const V* value = std::get_if<V>(&m_value))
            return *value;
        throw OdError(eInvalidResBuf);
    }

    template <class V>
    void set(const V& value)
    {
        V* held = std::get_if<V>(&m_value);
        if (!held)
            throw OdError(eInvalidResBuf);
        *held = value;
    }

    template <class V>
    static OdResBufPtr make(int restype, const V& value);

    int m_restype;
    Value m_value;
};
