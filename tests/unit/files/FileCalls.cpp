#include "FileCalls.h"

#include <fcntl.h>
#include <sys/types.h>

#include <time.h>

#include <cerrno>
#include <cstdarg>
#include <utility>

namespace
{
timespec clockOfWaits = {1000, 0};

// Does the real call unless it is the one that fails.
template <class Real>
auto called(FileCall call, Real real) -> decltype(real())
{
    FileCalls& calls = FileCalls::now();
    static bool within = false;
    if (within)
        return real();
    within = true;
    ++calls.made;
    if (calls.before)
        calls.before(call);
    const bool fails = calls.made == calls.failAt;
    decltype(real()) result = -1;
    // A failing close has closed the file all the same.
    if (!fails || call == FileCall::close)
        result = real();
    if (fails)
        result = -1;
    const int error = fails ? calls.failure : errno;
    if (calls.after)
        calls.after(call);
    errno = error;
    within = false;
    return result;
}
} // namespace

FileCalls& FileCalls::now()
{
    static FileCalls instance;
    return instance;
}

extern "C"
{
    int __real_openat(int folder, const char* name, int flags, mode_t mode);
    int __real_fcntl(int file, int command, void* argument);
    int __real_fchown(int file, uid_t user, gid_t group);
    int __real_fsetxattr(int file, const char* name, const void* value, size_t size, int flags);
    int __real_fchmod(int file, mode_t mode);
    ssize_t __real_write(int file, const void* bytes, size_t size);
    int __real_ftruncate(int file, off_t size);
    int __real_fsync(int file);
    int __real_close(int file);
    int __real_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName);
    int __real_linkat(int oldFolder, const char* oldName, int newFolder, const char* newName, int flags);
    int __real_unlinkat(int folder, const char* name, int flags);

    int __wrap_openat(int folder, const char* name, int flags, ...)
    {
        std::va_list list;
        va_start(list, flags);
        const auto mode = static_cast<mode_t>((flags & O_CREAT) ? va_arg(list, unsigned) : 0U);
        va_end(list);
        return called(FileCall::openat, [=] { return __real_openat(folder, name, flags, mode); });
    }
    int __wrap_fcntl(int file, int command, ...)
    {
        std::va_list list;
        va_start(list, command);
        void* argument = va_arg(list, void*);
        va_end(list);
        if (command != F_OFD_SETLK)
            return __real_fcntl(file, command, argument);
        return called(FileCall::lock, [=] { return __real_fcntl(file, command, argument); });
    }
    int __wrap_fchown(int file, uid_t user, gid_t group)
    {
        return called(FileCall::fchown, [=] { return __real_fchown(file, user, group); });
    }
    int __wrap_fsetxattr(int file, const char* name, const void* value, size_t size, int flags)
    {
        return called(FileCall::fsetxattr, [=] { return __real_fsetxattr(file, name, value, size, flags); });
    }
    int __wrap_fchmod(int file, mode_t mode)
    {
        return called(FileCall::fchmod, [=] { return __real_fchmod(file, mode); });
    }
    ssize_t __wrap_write(int file, const void* bytes, size_t size)
    {
        const size_t piece = FileCalls::now().inPieces && size > 2 ? 2 : size;
        return called(FileCall::write, [=] { return __real_write(file, bytes, piece); });
    }
    int __wrap_ftruncate(int file, off_t size)
    {
        return called(FileCall::ftruncate, [=] { return __real_ftruncate(file, size); });
    }
    int __wrap_fsync(int file)
    {
        return called(FileCall::fsync, [=] { return __real_fsync(file); });
    }
    int __wrap_close(int file)
    {
        return called(FileCall::close, [=] { return __real_close(file); });
    }
    int __wrap_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName)
    {
        return called(FileCall::renameat, [=] { return __real_renameat(oldFolder, oldName, newFolder, newName); });
    }
    int __wrap_linkat(int oldFolder, const char* oldName, int newFolder, const char* newName, int flags)
    {
        return called(FileCall::linkat, [=] { return __real_linkat(oldFolder, oldName, newFolder, newName, flags); });
    }
    int __wrap_unlinkat(int folder, const char* name, int flags)
    {
        return called(FileCall::unlinkat, [=] { return __real_unlinkat(folder, name, flags); });
    }

    int __wrap_clock_gettime(clockid_t clock, timespec* now)
    {
        (void)clock;
        *now = clockOfWaits;
        return 0;
    }
    int __wrap_nanosleep(const timespec* time, timespec* left)
    {
        (void)left;
        constexpr long second = 1'000'000'000;
        clockOfWaits.tv_nsec += time->tv_nsec;
        clockOfWaits.tv_sec += time->tv_sec + clockOfWaits.tv_nsec / second;
        clockOfWaits.tv_nsec %= second;
        ++FileCalls::now().waits;
        if (FileCalls::now().onWait)
            FileCalls::now().onWait();
        return 0;
    }
}
