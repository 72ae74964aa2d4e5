#pragma once

#include "kernel/OdAssert.h"
#include "kernel/OdRxObject.h"

#include <atomic>
#include <utility>

// Makes T concrete with a 32-bit atomic count that starts at 1. The release that brings it to 0 destroys the object. A
// further release asserts "(m_nRefCounter > 0)" and does not destroy it again.
template <class T>
class OdRxObjectImpl : public T
{
public:
    template <class... Args>
    explicit OdRxObjectImpl(Args&&... args) : T(std::forward<Args>(args)...)
    {
    }

    void addRef() noexcept override { m_nRefCounter.fetch_add(1, std::memory_order_relaxed); }

    void release() noexcept override
    {
        if (!(m_nRefCounter.load(std::memory_order_relaxed) > 0))
            odReportAssert("(m_nRefCounter > 0)", "platform/kernel/OdRxObjectImpl", __LINE__);
        if (m_nRefCounter.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

    OdRefCount refCount() const noexcept override { return m_nRefCounter.load(std::memory_order_relaxed); }

    // A new object, with its first reference.
    template <class... Args>
    static OdSmartPtr<T> createObject(Args&&... args)
    {
        return OdSmartPtr<T>(new OdRxObjectImpl(std::forward<Args>(args)...), kOdRxObjAttach);
    }

protected:
    ~OdRxObjectImpl() override = default;

private:
    std::atomic<OdRefCount> m_nRefCounter{1};
};
