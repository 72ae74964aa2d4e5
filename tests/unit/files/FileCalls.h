#pragma once

#include <functional>

// The calls by which the file layer changes the disk. The linker hands them to us instead of the system: they can be
// made to fail one by one, and a test can do something in the middle of a write.
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
    int failAt = 0;        // this call fails, 1 being the next one; 0: none does
    int failure = 0;       // with this error
    int made = 0;          // so far
    bool inPieces = false; // write takes two bytes at a time, as a disk may do it
    int waits = 0;         // how often the file layer waited; time goes on by what it waited, and by nothing else

    // Run in place of each wait.
    std::function<void()> onWait;

    // Run before (after) each call; none runs in the calls that it makes itself.
    std::function<void(FileCall)> before;
    std::function<void(FileCall)> after;

    static FileCalls& now(); // of this test
};

// Back to the system as it is, at the beginning and at the end of a test.
class FileCallsReset
{
public:
    FileCallsReset() { FileCalls::now() = {}; }
    ~FileCallsReset() { FileCalls::now() = {}; }
    FileCallsReset(const FileCallsReset&) = delete;
    FileCallsReset& operator=(const FileCallsReset&) = delete;
};
