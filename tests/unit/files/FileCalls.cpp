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

// Makes the real call unless it has to fail.
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
    // A failing close closes the file nevertheless.
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
#define WRAP(result, call, parameters, arguments)                                                                      \
    result __real_##call parameters;                                                                                   \
    result __wrap_##call parameters                                                                                    \
    {                                                                                                                  \
        return called(FileCall::call, [=] { return __real_##call arguments; });                                        \
    }
    WRAP(int, fchown, (int file, uid_t user, gid_t group), (file, user, group))
    WRAP(int, fsetxattr, (int file, const char* name, const void* value, size_t size, int flags),
         (file, name, value, size, flags))
    WRAP(int, fchmod, (int file, mode_t mode), (file, mode))
    WRAP(int, ftruncate, (int file, off_t size), (file, size))
    WRAP(int, fsync, (int file), (file))
    WRAP(int, close, (int file), (file))
    WRAP(int, renameat, (int oldFolder, const char* oldName, int newFolder, const char* newName),
         (oldFolder, oldName, newFolder, newName))
    WRAP(int, linkat, (int oldFolder, const char* oldName, int newFolder, const char* newName, int flags),
         (oldFolder, oldName, newFolder, newName, flags))
    WRAP(int, unlinkat, (int folder, const char* name, int flags), (folder, name, flags))
#undef WRAP

    int __real_openat(int folder, const char* name, int flags, mode_t mode);
    int __real_fcntl(int file, int command, void* argument);
    ssize_t __real_write(int file, const void* bytes, size_t size);

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
    ssize_t __wrap_write(int file, const void* bytes, size_t size)
    {
        const size_t piece = FileCalls::now().inPieces && size > 2 ? 2 : size;
        return called(FileCall::write, [=] { return __real_write(file, bytes, piece); });
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
