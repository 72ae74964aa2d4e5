#include "kernel/OdSharedPtr.h"
#include "ManyThreads.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{
struct Base
{
    explicit Base(int& livingObjects) : living(livingObjects) { ++living; }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base() { --living; }
    int& living;
};

struct Derived : Base
{
    using Base::Base;
    int answer = 42;
};
} // namespace

TEST(OdSharedPtr, aNewPointerIsTheOnlyOwner)
{
    int living = 0;
    const OdSharedPtr<Base> pointer(new Base(living));
    EXPECT_EQ(pointer.refCount(), 1);
}

TEST(OdSharedPtr, aNullPointerHasNoCount)
{
    const OdSharedPtr<Base> null;
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null);
    EXPECT_EQ(null.refCount(), 0);
    EXPECT_EQ(OdSharedPtr<Base>(static_cast<Base*>(nullptr)).refCount(), 0);
    EXPECT_EQ(null, nullptr);
}

TEST(OdSharedPtr, theLastOwnerCallsTheVirtualDestructor)
{
    int living = 0;
    OdSharedPtr<Base> first(new Derived(living));
    OdSharedPtr<Base> second = first;
    EXPECT_EQ(first.refCount(), 2);
    EXPECT_EQ(second, first);
    second = nullptr;
    EXPECT_EQ(first.refCount(), 1);
    EXPECT_EQ(living, 1);
    first = nullptr;
    EXPECT_EQ(living, 0);
}

TEST(OdSharedPtr, movingTransfersOwnership)
{
    int living = 0;
    OdSharedPtr<Base> first(new Base(living));
    const OdSharedPtr<Base> second = std::move(first);
    EXPECT_EQ(second.refCount(), 1);
    EXPECT_TRUE(first.isNull()); // NOLINT(bugprone-use-after-move): null is what a move leaves
}

TEST(OdSharedPtr, assignmentReleasesTheOldObject)
{
    int living = 0;
    OdSharedPtr<Base> pointer(new Base(living));
    const auto& itself = pointer;
    pointer = itself;
    EXPECT_EQ(pointer.refCount(), 1);
    pointer = OdSharedPtr<Base>(new Base(living));
    EXPECT_EQ(living, 1);
}

TEST(OdSharedPtr, baseAndItsDerivedPointerShareOneCount)
{
    int living = 0;
    OdSharedPtr<Derived> derived(new Derived(living));
    OdSharedPtr<Base> base = derived;
    EXPECT_EQ(base.refCount(), 2);
    const OdSharedPtr<Derived> again = base.staticCast<Derived>();
    EXPECT_EQ(again.refCount(), 3);
    EXPECT_EQ(again->answer, 42);
    derived = nullptr;
    base = nullptr;
    EXPECT_EQ(living, 1);
    EXPECT_EQ(again.refCount(), 1);
}

TEST(OdSharedPtr, ownersAreCountedByManyThreads)
{
    int living = 0;
    OdSharedPtr<Base> pointer(new Base(living));
    onManyThreads(
        [pointer]
        {
            OdSharedPtr<Base> copy = pointer;
            copy = nullptr;
        });
    EXPECT_EQ(pointer.refCount(), 1);
    EXPECT_EQ(living, 1);
}
