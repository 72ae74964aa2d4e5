#include "files/native/TempFile.h"

#include "files/TempName.h"
#include "files/native/Lock.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

namespace files
{
namespace
{
void removeIfStale(int folder, const char* name, time_t now) noexcept
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode) ||
        now - status.st_mtime < static_cast<time_t>(staleSeconds))
        return;
    const File file(::openat(folder, name, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    // The name is random, so it is either this file's or unused.
    if (file && lockFile(file.get(), F_WRLCK) == Lock::held)
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
    m_name = newTempName();
    m_file = File(::openat(m_folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (m_file)
        lockFile(m_file.get(), F_WRLCK);
    else
        m_name.clear();
}

bool TempFile::takePlaceOf(const char* target) noexcept
{
    if (::renameat(m_folder, m_name.c_str(), m_folder, target) != 0)
        return false;
    m_name.clear();
    return true;
}

bool TempFile::takeFreeName(const char* name) noexcept
{
    if (::linkat(m_folder, m_name.c_str(), m_folder, name, 0) != 0)
        return false;
    ::unlinkat(m_folder, m_name.c_str(), 0);
    m_name.clear();
    return true;
}

void removeStaleFiles(int folder, int justMade) noexcept
{
    struct stat status = {};
    const auto closeDir = [](DIR* dir) { ::closedir(dir); };
    const int copy = ::fstat(justMade, &status) == 0 ? ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
    if (copy < 0)
        return;
    const std::unique_ptr<DIR, decltype(closeDir)> entries(::fdopendir(copy));
    if (!entries)
    {
        ::close(copy);
        return;
    }
    while (const dirent* entry = ::readdir(entries.get()))
        if (isTempName(entry->d_name))
            removeIfStale(folder, entry->d_name, status.st_mtime);
}
} // namespace files
