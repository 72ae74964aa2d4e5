#pragma once

#include <cstddef>

// While the object exists, the n-th allocation of this thread (1 is the first) throws std::bad_alloc. Only one object
// at a time. Covers code that is linked into the test program, not libraries loaded by it.
class FailingAllocation
{
public:
    explicit FailingAllocation(unsigned n) noexcept;
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    // Whether the n-th allocation was requested, and so failed.
    bool reached() const noexcept;
};

// std::malloc with the same count, for odrxSetAllocSource: makes allocations of the kernel fail too.
void* failingMalloc(std::size_t size) noexcept;

// Runs work with its first allocation failing, then with its second, ... until it makes fewer. After each run
// check(result, failed) examines the outcome, with allocations working again. Returns how many failed.
template <class Work, class Check>
unsigned failEachAllocation(Work work, Check check)
{
    for (unsigned n = 1;; ++n)
    {
        bool failed = false;
        const auto result = [&]
        {
            const FailingAllocation failing(n);
            auto made = work();
            failed = failing.reached();
            return made;
        }();
        check(result, failed);
        if (!failed)
            return n - 1;
    }
}
