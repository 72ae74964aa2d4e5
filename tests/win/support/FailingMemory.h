#pragma once

#include <cstddef>
#include <memory>
#include <vector>

class ImportPatch;

// Makes the n-th allocation (1 is the first) of this thread fail while the object lives; 0: none, they are only
// counted. Covers all that takes memory by operator new from the shared C++ runtime, in whatever library, and what
// GarmHost.dll takes from the C runtime: the kernel's objects and the compression. One object at a time.
class FailingMemory
{
public:
    explicit FailingMemory(unsigned n);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    unsigned made() const noexcept;
    // Whether the n-th allocation was asked for, and so failed.
    bool reached() const noexcept;

    // The test's own allocations do not count.
    class Exempt
    {
    public:
        Exempt() noexcept { ++s_depth; }
        ~Exempt() { --s_depth; }
        Exempt(const Exempt&) = delete;
        Exempt& operator=(const Exempt&) = delete;

        static bool isOn() noexcept { return s_depth > 0; }

    private:
        static inline thread_local int s_depth = 0;
    };

private:
    std::vector<std::unique_ptr<ImportPatch>> m_patches;
};
