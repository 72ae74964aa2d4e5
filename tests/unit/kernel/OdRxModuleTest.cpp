#include "tests/support/EmptyModule.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace
{
class Module : public EmptyModule
{
public:
    explicit Module(int& living) : m_living(living) { ++m_living; }
    void deleteModule() override { delete this; }

private:
    ~Module() override { --m_living; }

    int& m_living;
};
} // namespace

TEST(OdRxModule, pointersLockItAndOnlyLoaderEndsIt)
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

TEST(OdRxObject, canBeConstructedInPlace)
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
