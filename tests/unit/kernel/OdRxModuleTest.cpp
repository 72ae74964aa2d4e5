#include "kernel/OdRxModule.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace
{
// As small as a module can be. It ends by deleteModule alone: references only lock it.
class Module : public OdRxModule
{
public:
    explicit Module(int& living) : m_living(living) { ++m_living; }

    void addRef() noexcept override { ++m_locks; }
    void release() noexcept override { --m_locks; }
    OdRefCount refCount() const noexcept override { return 0; }
    void* sysData() override { return nullptr; }
    void deleteModule() override { delete this; }
    void initApp() override {}
    void uninitApp() override {}
    OdString moduleName() const override { return {}; }
    void lock() noexcept override { ++m_locks; }
    void unlock() noexcept override { --m_locks; }
    OdRefCount lockCount() const noexcept override { return m_locks; }

private:
    ~Module() override { --m_living; }

    int& m_living;
    OdRefCount m_locks = 0;
};
} // namespace

TEST(OdRxModule, pointersLockItAndOnlyTheLoaderEndsIt)
{
    int living = 0;
    auto* const module = new Module(living);
    {
        const OdRxModulePtr pointer(module);
        EXPECT_EQ(module->lockCount(), 1);
    }
    EXPECT_EQ(module->lockCount(), 0);
    EXPECT_EQ(living, 1);
    module->deleteModule();
    EXPECT_EQ(living, 0);
}

TEST(OdRxObject, canBeMadeInPlace)
{
    class Plain : public OdRxObject
    {
    public:
        void addRef() noexcept override {}
        void release() noexcept override {}
        OdRefCount refCount() const noexcept override { return 0; }
        ~Plain() override = default;
    };
    alignas(Plain) std::byte room[sizeof(Plain)];
    auto* const object = new (room) Plain;
    EXPECT_EQ(static_cast<void*>(object), static_cast<void*>(room));
    object->~Plain();
}
