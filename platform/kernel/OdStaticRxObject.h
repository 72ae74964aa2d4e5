#pragma once

#include "kernel/OdRxObject.h"

#include <utility>

// Makes T concrete without counting: addRef and release do nothing, and whoever created the object destroys it.
template <class T>
class OdStaticRxObject : public T
{
public:
    template <class... Args>
    explicit OdStaticRxObject(Args&&... args) : T(std::forward<Args>(args)...)
    {
    }

    void addRef() noexcept override {}
    void release() noexcept override {}
    OdRefCount refCount() const noexcept override { return 0; }
};
