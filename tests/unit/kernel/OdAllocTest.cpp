#include "kernel/OdAlloc.h"
#include "CountedObject.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace
{
// Makes the allocations of the kernel fail after the given number of successful ones.
class FailingAllocations
{
public:
    explicit FailingAllocations(int before)
    {
        remaining() = before;
        m_source = odrxSetAllocSource(&allocate);
    }
    ~FailingAllocations() { odrxSetAllocSource(m_source); }

    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

private:
    static int& remaining()
    {
        static int instance = 0;
        return instance;
    }
    static void* allocate(std::size_t size) { return remaining()-- > 0 ? std::malloc(size) : nullptr; }

    OdAllocSource m_source;
};
} // namespace

TEST(OdAlloc, memoryIsWritableAndAligned)
{
    void* block = odrxAlloc(100);
    ASSERT_NE(block, nullptr);
    std::memset(block, 0xA5, 100);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    odrxFree(block);
}

TEST(OdAlloc, everyEmptyBlockIsDistinct)
{
    void* first = odrxAlloc(0);
    void* second = odrxAlloc(0);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(first, second);
    odrxFree(first);
    odrxFree(second);
}

TEST(OdAlloc, freeAcceptsNull)
{
    odrxFree(nullptr);
}

TEST(OdAlloc, failureIsStandardExceptionWithFixedText)
{
    const FailingAllocations fail(0);
    try
    {
        odrxFree(odrxAlloc(8));
        FAIL() << "the allocation succeeded";
    }
    catch (const std::bad_alloc& error)
    {
        EXPECT_STREQ(error.what(), "bad allocation");
    }
}

TEST(OdAlloc, aFailureThrowsOdBadAlloc)
{
    const FailingAllocations fail(0);
    EXPECT_THROW(odrxAlloc(8), OdBadAlloc);
}

TEST(OdAlloc, aNullSourceRestoresTheDefault)
{
    const FailingAllocations fail(0);
    odrxSetAllocSource(nullptr);
    void* block = odrxAlloc(8);
    EXPECT_NE(block, nullptr);
    odrxFree(block);
}

TEST(OdAlloc, objectsAreAllocatedByTheKernel)
{
    int living = 0;
    {
        const FailingAllocations fail(0);
        EXPECT_THROW(OdRxObjectImpl<CountedObject>::createObject(living), OdBadAlloc);
        EXPECT_THROW(OdResBuf::newRb(kRtString), OdBadAlloc);
        EXPECT_THROW(odedNewCommandStack(), OdBadAlloc);
    }
    EXPECT_EQ(living, 0);

    const FailingAllocations fail(1);
    const auto object = OdRxObjectImpl<CountedObject>::createObject(living);
    EXPECT_EQ(living, 1);
    EXPECT_THROW(OdResBuf::newRb(kRtString), OdBadAlloc);
}
