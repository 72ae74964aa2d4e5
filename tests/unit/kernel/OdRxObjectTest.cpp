#include "CountedObject.h"
#include "ManyThreads.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdStaticRxObject.h"
#include "tests/support/RecordedAsserts.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{
class Special : public CountedObject
{
public:
    using CountedObject::CountedObject;
};

using SpecialImpl = OdRxObjectImpl<Special>;
using CountedImpl = OdRxObjectImpl<CountedObject>;

// Checks in its destructor whether the last pointer to it is already null.
class Looker : public OdRxObject
{
public:
    Looker(OdSmartPtr<Looker>& holder, bool& foundNothing) : m_holder(holder), m_foundNothing(foundNothing) {}
    ~Looker() override { m_foundNothing = m_holder.isNull(); }

private:
    OdSmartPtr<Looker>& m_holder;
    bool& m_foundNothing;
};
} // namespace

TEST(OdRxObjectImpl, aNewObjectHasOneReference)
{
    int living = 0;
    const auto object = CountedImpl::createObject(living);
    EXPECT_EQ(object->refCount(), 1);
    EXPECT_EQ(living, 1);
}

TEST(OdRxObjectImpl, theLastReleaseDestroysTheObject)
{
    int living = 0;
    CountedObject* object = CountedImpl::createObject(living).detach();
    object->addRef();
    EXPECT_EQ(object->refCount(), 2);
    object->release();
    EXPECT_EQ(living, 1);
    object->release();
    EXPECT_EQ(living, 0);
}

TEST(OdRxObjectImpl, theCountHas32Bits)
{
    EXPECT_EQ(sizeof(OdRefCount), 4U);
    EXPECT_TRUE(std::is_signed_v<OdRefCount>);
}

TEST(OdRxObjectImpl, extraReleaseAssertsWithoutDestroyingTwice)
{
    // The first release destroys the object; its destructor makes another one, while the count is 0.
    struct ReleasedTwice : OdRxObject
    {
    };
    class Impl : public OdRxObjectImpl<ReleasedTwice>
    {
    public:
        explicit Impl(int& destroyed) : m_destroyed(destroyed) {}
        ~Impl() override
        {
            ++m_destroyed;
            this->release();
        }

    private:
        int& m_destroyed;
    };

    const RecordedAsserts asserts;
    int destroyed = 0;
    OdRxObject* object = new Impl(destroyed);
    object->release();
    EXPECT_EQ(destroyed, 1);
    ASSERT_EQ(asserts.reports().size(), 1U);
    EXPECT_EQ(asserts.reports()[0], "(m_nRefCounter > 0) | platform/kernel/OdRxObjectImpl");
}

TEST(OdRxObjectImpl, aBalancedReleaseAssertsNothing)
{
    const RecordedAsserts asserts;
    int living = 0;
    CountedImpl::createObject(living);
    EXPECT_EQ(living, 0);
    EXPECT_TRUE(asserts.reports().empty());
}

TEST(OdRxObjectImpl, referencesAreCountedByManyThreads)
{
    int living = 0;
    auto object = CountedImpl::createObject(living);
    onManyThreads(
        [object]
        {
            OdSmartPtr<CountedObject> copy = object;
            copy.release();
        });
    EXPECT_EQ(object->refCount(), 1);
    object.release();
    EXPECT_EQ(living, 0);
}

TEST(OdStaticRxObject, countsNothing)
{
    int living = 0;
    {
        OdStaticRxObject<CountedObject> object(living);
        object.addRef();
        object.release();
        object.release();
        EXPECT_EQ(object.refCount(), 0);
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(OdStaticRxObject, canBeWrappedInACountingObject)
{
    int living = 0;
    {
        const auto object = OdRxObjectImpl<OdStaticRxObject<CountedObject>>::createObject(living);
        EXPECT_EQ(object->refCount(), 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(OdSmartPtr, plainPointerGetsReferenceAndAttachTakesOne)
{
    int living = 0;
    CountedObject* plain = CountedImpl::createObject(living).detach();
    {
        const OdSmartPtr<CountedObject> added(plain);
        EXPECT_EQ(plain->refCount(), 2);
    }
    EXPECT_EQ(plain->refCount(), 1);
    {
        const OdSmartPtr<CountedObject> attached(plain, kOdRxObjAttach);
        EXPECT_EQ(plain->refCount(), 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(OdSmartPtr, copiesShareAndMovesTransfer)
{
    int living = 0;
    auto first = CountedImpl::createObject(living);
    OdSmartPtr<CountedObject> second = first;
    EXPECT_EQ(first->refCount(), 2);
    EXPECT_EQ(first, second);

    OdSmartPtr<CountedObject> third = std::move(second);
    EXPECT_EQ(first->refCount(), 2);
    EXPECT_EQ(third, first);
    EXPECT_TRUE(second.isNull()); // NOLINT(bugprone-use-after-move): null is what a move leaves
}

TEST(OdSmartPtr, assignmentReleasesTheOldObject)
{
    int living = 0;
    auto pointer = CountedImpl::createObject(living);
    const auto& itself = pointer;
    pointer = itself;
    EXPECT_EQ(pointer->refCount(), 1);

    pointer = CountedImpl::createObject(living);
    EXPECT_EQ(living, 1);
    pointer = nullptr;
    EXPECT_EQ(living, 0);
    EXPECT_EQ(pointer, nullptr);
}

TEST(OdSmartPtr, attachAndDetachTransferTheReference)
{
    int living = 0;
    OdSmartPtr<CountedObject> pointer = CountedImpl::createObject(living);
    CountedObject* next = CountedImpl::createObject(living).detach();
    pointer.attach(next);
    EXPECT_EQ(living, 1);
    EXPECT_EQ(pointer->refCount(), 1);

    CountedObject* given = pointer.detach();
    EXPECT_FALSE(pointer);
    EXPECT_EQ(given->refCount(), 1);
    given->release();
    EXPECT_EQ(living, 0);
}

TEST(OdSmartPtr, convertsToABase)
{
    int living = 0;
    const auto special = SpecialImpl::createObject(living);
    const OdRxObjectPtr copied = special;
    EXPECT_EQ(special->refCount(), 2);
    const OdRxObjectPtr moved = SpecialImpl::createObject(living);
    EXPECT_EQ(moved->refCount(), 1);
}

TEST(OdSmartPtr, isNullBeforeTheObjectIsDestroyed)
{
    bool foundNothing = false;
    OdSmartPtr<Looker> holder;
    holder = OdRxObjectImpl<Looker>::createObject(holder, foundNothing);
    holder.release();
    EXPECT_TRUE(foundNothing);
}

TEST(OdRxCast, returnsAnObjectOfThatClassOrNull)
{
    int living = 0;
    const OdRxObjectPtr special = SpecialImpl::createObject(living);
    const OdRxObjectPtr plain = CountedImpl::createObject(living);
    EXPECT_EQ(odrxCast<Special>(special).get(), special.get());
    EXPECT_EQ(special->refCount(), 1) << "the reference of the cast was released";
    EXPECT_EQ(odrxCast<Special>(plain), nullptr);
    EXPECT_EQ(odrxCast<Special>(OdRxObjectPtr()), nullptr);
    EXPECT_EQ(OdResBuf::cast(plain.get()), nullptr);
}

TEST(OdRxCast, orThrowsNamesTheWrongClass)
{
    int living = 0;
    const OdRxObjectPtr plain = CountedImpl::createObject(living);
    EXPECT_THROW(odrxCastOrThrow<OdResBuf>(plain), OdError_NotThatKindOfClass);
    EXPECT_EQ(plain->refCount(), 1);
    EXPECT_EQ(odrxCastOrThrow<OdResBuf>(OdRxObjectPtr()), nullptr);
    EXPECT_EQ(odrxCastOrThrow<CountedObject>(plain).get(), plain.get());
}
