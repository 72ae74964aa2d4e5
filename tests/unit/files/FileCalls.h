#pragma once

#include "files/FileAccess.h"
#include "kernel/OdString.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

// The calls with which the file layer changes the disk. The linker redirects them to us: a test can make each of them
// fail, and can act in the middle of a write.
enum class FileCall
{
    openat,
    lock,
    fchown,
    fsetxattr,
    fchmod,
    write,
    ftruncate,
    fsync,
    close,
    renameat,
    linkat,
    unlinkat
};

struct FileCalls
{
    int failAt = 0;        // this call fails (1 is the next one); 0: none does
    int failure = 0;       // with this error
    int made = 0;          // calls so far
    bool inPieces = false; // write accepts only two bytes at a time, as it may
    int waits = 0;         // how often the file layer waited; the clock advances only by these waits

    // Called instead of each wait.
    std::function<void()> onWait = {};

    // Called before (after) each call, except for calls made by the hook itself.
    std::function<void(FileCall)> before = {};
    std::function<void(FileCall)> after = {};

    // Lets the first to the last call of this kind fail.
    void fail(FileCall kind, int error, int first = 1, int last = INT_MAX)
    {
        failure = error;
        before = [this, kind, first, last, count = 0](FileCall call) mutable
        {
            if (call == kind && ++count >= first && count <= last)
                failAt = made;
        };
    }

    static FileCalls& now(); // of the current test
};

// Restores the normal calls at the start and at the end of a test.
class FileCallsReset
{
public:
    FileCallsReset() { FileCalls::now() = {}; }
    ~FileCallsReset() { FileCalls::now() = {}; }
    FileCallsReset(const FileCallsReset&) = delete;
    FileCallsReset& operator=(const FileCallsReset&) = delete;
};

// Saves "brand new" with the first call failing, then with the second, ... until a save makes fewer calls. prepare runs
// before each save; check(reason, n) examines its outcome, with a null reason after success. Returns how many saves
// failed.
template <class Prepare, class Check>
int failEachCall(const OdString& name, int error, Prepare prepare, Check check)
{
    int refused = 0;
    for (int n = 1;; ++n)
    {
        prepare();
        FileCalls::now() = {.failAt = n, .failure = error, .inPieces = true};
        const char* reason = files::replaceFile(name.c_str(), "brand new");
        const bool reached = FileCalls::now().made >= n;
        FileCalls::now() = {};
        refused += reason ? 1 : 0;
        check(reason, n);
        if (reached)
            continue;
        EXPECT_EQ(reason, nullptr);
        return refused;
    }
}
