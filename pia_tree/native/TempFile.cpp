#include "pia_tree/native/TempFile.h"

#include "pia_tree/TempName.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <memory>

namespace pia
{
namespace
{
bool isGone(std::uint32_t process) noexcept
{
    // What does not fit would name a whole group of processes.
    if (process > INT_MAX)
        return false;
    return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

// Whether the name still leads to the open file.
bool isNameOf(int folder, const char* name, int file) noexcept
{
    struct stat named = {};
    struct stat opened = {};
    return ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && ::fstat(file, &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

// A writer that lives holds the lock, so whoever gets it may remove the file. Who is not let at the lock, or finds that
// the file system has none, goes by the number of the process.
void removeIfStale(int folder, const char* name, std::uint32_t process) noexcept
{
    const File file(::openat(folder, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    const bool locked = file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
    if (!locked && file && errno == EWOULDBLOCK)
        return;
    // Behind a lock that was free the file may just have become somebody's target.
    if (locked ? isNameOf(folder, name, file.get()) : isGone(process))
        ::unlinkat(folder, name, 0);
}
} // namespace

TempFile::~TempFile()
{
    m_file.close();
    if (!m_name.empty())
        ::unlinkat(m_folder, m_name.c_str(), 0);
}

void TempFile::create(mode_t mode)
{
    for (;;)
    {
        m_name = nextTempName(static_cast<std::uint32_t>(::getpid()));
        File file(::openat(m_folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        // A name is taken when a killed process had our number.
        if (!file && errno == EEXIST)
            continue;
        if (!file)
        {
            m_name.clear();
            return;
        }
        // Between its making and its lock somebody may have taken it for one left behind. A file system without locks
        // has nobody who could.
        const bool taken = ::flock(file.get(), LOCK_EX | LOCK_NB) != 0
                               ? errno == EWOULDBLOCK
                               : !isNameOf(m_folder, m_name.c_str(), file.get());
        if (taken)
            continue;
        m_lock = File(::fcntl(file.get(), F_DUPFD_CLOEXEC, 0));
        if (!m_lock)
            return; // the destructor removes it
        m_file = std::move(file);
        return;
    }
}

bool TempFile::takePlaceOf(const char* target) noexcept
{
    if (::renameat(m_folder, m_name.c_str(), m_folder, target) != 0)
        return false;
    m_name.clear();
    return true;
}

void removeStaleFiles(int folder) noexcept
{
    const auto closeDir = [](DIR* dir) { ::closedir(dir); };
    const int copy = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (copy < 0)
        return;
    const std::unique_ptr<DIR, decltype(closeDir)> entries(::fdopendir(copy));
    if (!entries)
    {
        ::close(copy);
        return;
    }
    while (const dirent* entry = ::readdir(entries.get()))
        if (const auto process = processOfTempName(entry->d_name))
            removeIfStale(folder, entry->d_name, *process);
}
} // namespace pia
