#pragma once

#include <cstddef>

// Makes the n-th allocation (1 is the first) of this thread fail with std::bad_alloc while the object lives. Only one
// object at a time. Covers what the test program itself is linked from, not libraries loaded beside it.
class FailingAllocation
{
public:
    explicit FailingAllocation(unsigned n) noexcept;
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    // Whether the n-th allocation was asked for, and so failed.
    bool reached() const noexcept;
};

// std::malloc with the same count, for odrxSetAllocSource: what the kernel allocates then fails in its turn, too.
void* failingMalloc(std::size_t size) noexcept;

// Runs work with its first allocation failing, then with its second, ... until it asks for fewer. After each run
// check(result of work, failed) looks at what came of it, with allocations working again. Returns how many failed.
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
