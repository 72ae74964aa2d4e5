#pragma once

#include "kernel/OdRxModule.h"

// A module without content; references only lock it.
class EmptyModule : public OdRxModule
{
public:
    void addRef() noexcept override { lock(); }
    void release() noexcept override { unlock(); }
    OdRefCount refCount() const noexcept override { return m_locks; }
    void* sysData() override { return nullptr; }
    void deleteModule() override {}
    void initApp() override {}
    void uninitApp() override {}
    OdString moduleName() const override { return {}; }
    void lock() noexcept override { ++m_locks; }
    void unlock() noexcept override { --m_locks; }
    OdRefCount lockCount() const noexcept override { return m_locks; }

protected:
    ~EmptyModule() override = default;

private:
    OdRefCount m_locks = 0;
};
