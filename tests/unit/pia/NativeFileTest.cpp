// What only this platform's files can do: links, modes, pipes, full disks, and system calls that fail one by one.

#include "FolderTools.h"
#include "pia_tree/FileAccess.h"
#include "pia_tree/TempName.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdarg>

namespace
{
using Names = std::vector<std::string>;

// The n-th of the calls below fails with this error; 0: none does.
int failAt = 0;
int calls = 0;
int failure = EIO;

bool failsNow()
{
    if (failAt == 0 || ++calls != failAt)
        return false;
    errno = failure;
    return true;
}

std::string nativeName(const OdString& name)
{
    return odToUtf8(name);
}

mode_t modeOf(const OdString& name)
{
    struct stat status = {};
    EXPECT_EQ(::stat(nativeName(name).c_str(), &status), 0);
    return status.st_mode & 07777;
}

std::string refusal(const OdString& name, std::string_view bytes = "new")
{
    const char* reason = pia::replaceFile(name.c_str(), bytes);
    return reason ? reason : "was written";
}

std::string refusalToRead(const OdString& name)
{
    pia::ByteBuffer bytes;
    const char* reason = pia::readFile(name.c_str(), bytes);
    return reason ? reason : "was read";
}

class NativeFile : public testing::Test
{
protected:
    void link(const char* target, const OdString& name) { ASSERT_EQ(::symlink(target, nativeName(name).c_str()), 0); }

    TemporaryFolder m_folder;
};
} // namespace

// The linker puts these in the place of the functions the file layer calls.
extern "C"
{
    int __real_openat(int folder, const char* name, int flags, mode_t mode);
    ssize_t __real_write(int file, const void* bytes, size_t size);
    int __real_fchmod(int file, mode_t mode);
    int __real_fsync(int file);
    int __real_close(int file);
    int __real_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName);

    int __wrap_openat(int folder, const char* name, int flags, ...)
    {
        std::va_list list;
        va_start(list, flags);
        const auto mode = static_cast<mode_t>((flags & O_CREAT) ? va_arg(list, unsigned) : 0U);
        va_end(list);
        return failsNow() ? -1 : __real_openat(folder, name, flags, mode);
    }
    ssize_t __wrap_write(int file, const void* bytes, size_t size)
    {
        if (failsNow())
            return -1;
        // In pieces, as a disk may do it.
        return __real_write(file, bytes, failAt && size > 2 ? 2 : size);
    }
    int __wrap_fchmod(int file, mode_t mode)
    {
        return failsNow() ? -1 : __real_fchmod(file, mode);
    }
    int __wrap_fsync(int file)
    {
        return failsNow() ? -1 : __real_fsync(file);
    }
    int __wrap_close(int file)
    {
        // A failing close has closed the file all the same.
        const int result = __real_close(file);
        return failsNow() ? -1 : result;
    }
    int __wrap_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName)
    {
        return failsNow() ? -1 : __real_renameat(oldFolder, oldName, newFolder, newName);
    }
}

TEST_F(NativeFile, whateverFailsTheOldFileIsIntactAndNothingIsLeftBehind)
{
    const OdString name = m_folder.at("A4.pc3");
    int refused = 0;
    for (int n = 1;; ++n)
    {
        putContent(name, "old");
        failAt = n;
        calls = 0;
        const char* reason = pia::replaceFile(name.c_str(), "brand new");
        const bool reached = calls >= n;
        failAt = 0;
        refused += reason ? 1 : 0;
        EXPECT_EQ(contentOf(name), reason ? "old" : "brand new") << n;
        EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"}) << n;
        if (!reached)
        {
            EXPECT_EQ(reason, nullptr);
            break;
        }
    }
    // The temporary file, its mode, five pieces, the flush, the close, the exchange. Looking for stale files and what
    // comes after the exchange may fail.
    EXPECT_EQ(refused, 1 + 1 + 5 + 1 + 1 + 1);
}

TEST_F(NativeFile, whateverFailsANewFileIsWholeOrAbsent)
{
    const OdString name = m_folder.at("A4.pc3");
    int refused = 0;
    for (int n = 1;; ++n)
    {
        std::filesystem::remove(pathOf(name));
        failAt = n;
        calls = 0;
        const char* reason = pia::replaceFile(name.c_str(), "brand new");
        const bool reached = calls >= n;
        failAt = 0;
        refused += reason ? 1 : 0;
        EXPECT_EQ(namesIn(m_folder.path()), reason ? Names{} : Names{"A4.pc3"}) << n;
        EXPECT_EQ(contentOf(name), reason ? "" : "brand new") << n;
        if (!reached)
            break;
    }
    EXPECT_EQ(refused, 1 + 5 + 1 + 1 + 1);
}

TEST_F(NativeFile, aCallThatWasInterruptedIsRepeated)
{
    const OdString name = m_folder.at("A4.pc3");
    failure = EINTR;
    // Before the five pieces come the look for stale files, the temporary file and its mode.
    for (int n = 4; n <= 8; ++n)
    {
        putContent(name, "old");
        failAt = n;
        calls = 0;
        EXPECT_EQ(pia::replaceFile(name.c_str(), "brand new"), nullptr) << n;
        failAt = 0;
        EXPECT_GE(calls, n);
    }
    failure = EIO;
    EXPECT_EQ(contentOf(name), "brand new");
}

TEST_F(NativeFile, aFullDiskCostsNothing)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 4096;
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string answer = refusal(name, std::string(100000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);

    EXPECT_EQ(answer, "there is not enough room on the disk");
    EXPECT_EQ(contentOf(name), "old");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(NativeFile, aLinkIsFollowed)
{
    m_folder.addFolder("here");
    m_folder.addFolder("there");
    putContent(m_folder.at("there/A4.pc3"), "old");
    link("../there/A4.pc3", m_folder.at("here/first.pc3"));
    link("first.pc3", m_folder.at("here/second.pc3"));

    EXPECT_EQ(refusal(m_folder.at("here/second.pc3")), "was written");
    EXPECT_EQ(contentOf(m_folder.at("there/A4.pc3")), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("here/first.pc3"))));
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("here/second.pc3"))));
    EXPECT_EQ(namesIn(m_folder.at("there")), Names{"A4.pc3"});
}

TEST_F(NativeFile, aLinkMayNameAFileThatIsToBeMade)
{
    const OdString target = m_folder.at("target.pc3");
    link(nativeName(target).c_str(), m_folder.at("link.pc3"));
    EXPECT_EQ(refusal(m_folder.at("link.pc3")), "was written");
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("link.pc3"))));
}

TEST_F(NativeFile, linksThatNeverEndAreRefused)
{
    link("b.pc3", m_folder.at("a.pc3"));
    link("a.pc3", m_folder.at("b.pc3"));
    EXPECT_EQ(refusal(m_folder.at("a.pc3")), "the links to the file never end");
    EXPECT_EQ(refusalToRead(m_folder.at("a.pc3")), "the links to the file never end");
}

TEST_F(NativeFile, theModeIsKept)
{
    const OdString name = m_folder.at("A4.pc3");
    for (const mode_t mode : {0600U, 0640U, 0666U, 0755U})
    {
        putContent(name, "old");
        ASSERT_EQ(::chmod(nativeName(name).c_str(), mode), 0);
        EXPECT_EQ(refusal(name), "was written");
        EXPECT_EQ(modeOf(name), mode);
    }
}

TEST_F(NativeFile, aNewFileHasTheUsualMode)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(refusal(m_folder.at("A4.pc3")), "was written");
    ::umask(before);
    EXPECT_EQ(modeOf(m_folder.at("A4.pc3")), 0640U);
}

TEST_F(NativeFile, pipesAndDevicesAreRefusedWithoutWaiting)
{
    const OdString pipe = m_folder.at("pipe.pc3");
    ASSERT_EQ(::mkfifo(nativeName(pipe).c_str(), 0600), 0);
    constexpr auto reason = "that is a folder or a device, not a file";
    EXPECT_EQ(refusalToRead(pipe), reason);
    EXPECT_EQ(refusal(pipe), reason);
    EXPECT_EQ(refusalToRead(m_folder.path()), reason);
    for (const OdChar* device : {OD_T("/dev/null"), OD_T("/dev/full"), OD_T("/dev/zero")})
    {
        EXPECT_EQ(refusalToRead(device), reason);
        EXPECT_EQ(refusal(device), reason);
    }
    EXPECT_TRUE(std::filesystem::is_fifo(pathOf(pipe)));
    EXPECT_EQ(namesIn(m_folder.path()), Names{"pipe.pc3"});
}

TEST_F(NativeFile, aPathMayBeAsLongAsTheSystemTakesIt)
{
    std::filesystem::path path;
    for (int i = 0; i < 10; ++i)
        path /= std::string(200, 'x');
    m_folder.addFolder(path);
    EXPECT_EQ(refusal(m_folder.at(path / "A4.pc3")), "was written");
    EXPECT_EQ(refusal(m_folder.at(path / "A4.pc3")), "was written");
    EXPECT_EQ(refusalToRead(m_folder.at(path / "A4.pc3")), "was read");

    OdString tooLong = m_folder.path();
    while (tooLong.getLength() < PATH_MAX)
        tooLong += OD_T("/./././././././././.");
    EXPECT_EQ(refusal(tooLong + OD_T("/A4.pc3")), "the name of the file is too long");
    EXPECT_EQ(refusalToRead(tooLong + OD_T("/A4.pc3")), "the name of the file is too long");
}

TEST_F(NativeFile, aNameThatCannotBeOneHereIsRefused)
{
    const OdChar lone[] = {'x', 0xD800, 0};
    EXPECT_EQ(refusal(lone), "no file has that name");
    EXPECT_EQ(refusalToRead(lone), "no file has that name");
}

TEST_F(NativeFile, aTemporaryFileStaysUntilItsProcessIsGone)
{
    int toChild[2];
    ASSERT_EQ(::pipe(toChild), 0);
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::close(toChild[1]);
        char byte = 0;
        // Ends when the other end is closed.
        ::_exit(::read(toChild[0], &byte, 1) == 0 ? 0 : 1);
    }
    ASSERT_GT(child, 0);
    ::close(toChild[0]);

    const std::string name = pia::nextTempName(static_cast<std::uint32_t>(child));
    putContent(m_folder.at(name), "being written");
    EXPECT_EQ(refusal(m_folder.at("A4.pc3")), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", name}));

    ::close(toChild[1]);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(refusal(m_folder.at("A4.pc3")), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(NativeFile, ourOwnTemporaryFilesAreLeftAlone)
{
    // Another thread may be writing it.
    const std::string name = pia::nextTempName(static_cast<std::uint32_t>(::getpid()));
    putContent(m_folder.at(name), "being written");
    EXPECT_EQ(refusal(m_folder.at("A4.pc3")), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", name}));
}
