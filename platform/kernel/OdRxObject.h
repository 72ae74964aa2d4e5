#pragma once

#include "kernel/OdAlloc.h"
#include "kernel/OdError.h"
#include "kernel/OdSmartPtr.h"

#include <cstddef>

// The base of what host and module share by counting references. The object itself has no lock; only its count may be
// touched by several threads at once. Objects live in the kernel allocator's memory, so creating one may throw
// OdBadAlloc.
class OdRxObject
{
public:
    OdRxObject(const OdRxObject&) = delete;
    OdRxObject& operator=(const OdRxObject&) = delete;

    // The last release destroys the object. How references are counted is up to the wrapper that makes the class
    // concrete: OdRxObjectImpl, OdStaticRxObject or OdRxWin32Module.
    virtual void addRef() noexcept = 0;
    virtual void release() noexcept = 0;

    // How many references there are; 0 for an object that is not counted.
    virtual OdRefCount refCount() const noexcept = 0;

    static void* operator new(std::size_t size) { return odrxAlloc(size); }
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* object) noexcept { odrxFree(object); }

protected:
    OdRxObject() = default;
    virtual ~OdRxObject();
};

using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

// The object as a T; null if there is no object or it is not a T.
template <class T>
OdSmartPtr<T> odrxCast(OdRxObject* object) noexcept
{
    return OdSmartPtr<T>(dynamic_cast<T*>(object));
}

template <class T, class U>
OdSmartPtr<T> odrxCast(const OdSmartPtr<U>& object) noexcept
{
    return odrxCast<T>(object.get());
}

// The object as a T; null stays null. Throws OdError_NotThatKindOfClass for an object of another class.
template <class T, class U>
OdSmartPtr<T> odrxCastOrThrow(const OdSmartPtr<U>& object)
{
    OdSmartPtr<T> result = odrxCast<T>(object);
    if (object && !result)
        throw OdError_NotThatKindOfClass();
    return result;
}
