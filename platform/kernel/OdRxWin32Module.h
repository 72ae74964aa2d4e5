#pragma once

#include "kernel/OdAssert.h"
#include "kernel/OdRxModule.h"

#include <atomic>
#include <windows.h>

// Makes a module class concrete for a Windows library. There is one object per load: create makes it, deleteModule
// destroys it, and the next create makes a new one. Main thread only, except for the lock count.
template <class T>
class OdRxWin32Module : public T
{
public:
    // This library's module object, created by the first call; later calls return the same one, whatever they pass.
    // Throws OdBadAlloc.
    static OdRxModule* create(HINSTANCE library)
    {
        if (!s_module)
            s_module = new OdRxWin32Module(library);
        return s_module;
    }

    // The object, or null before create and after deleteModule.
    static OdRxModule* current() noexcept { return s_module; }

    void* sysData() override { return m_library; }

    // The pointer is cleared first, so code that runs during the destruction no longer finds the object.
    void deleteModule() override
    {
        s_module = nullptr;
        delete this;
    }

    // A path that does not fit the buffer is cut off, and on old systems has no terminator.
    OdString moduleName() const override
    {
        OdChar path[MAX_PATH] = {};
        const DWORD length = ::GetModuleFileNameW(m_library, path, MAX_PATH);
        return OdString(odBoundedView(path, length < MAX_PATH ? length : MAX_PATH));
    }

    void lock() noexcept override { m_nLockCount.fetch_add(1, std::memory_order_relaxed); }

    void unlock() noexcept override
    {
        if (!m_nLockCount.load(std::memory_order_relaxed))
            odReportAssert("m_nLockCount", "platform/kernel/OdRxWin32Module", __LINE__);
        m_nLockCount.fetch_sub(1, std::memory_order_acq_rel);
    }

    OdRefCount lockCount() const noexcept override { return m_nLockCount.load(std::memory_order_relaxed); }

    // A reference to a module is a lock on it.
    void addRef() noexcept override { lock(); }
    void release() noexcept override { unlock(); }
    OdRefCount refCount() const noexcept override { return lockCount(); }

protected:
    explicit OdRxWin32Module(HINSTANCE library) noexcept : m_library(library) {}
    ~OdRxWin32Module() override = default;

private:
    inline static OdRxModule* s_module = nullptr;

    HINSTANCE m_library;
    std::atomic<OdRefCount> m_nLockCount{0};
};
