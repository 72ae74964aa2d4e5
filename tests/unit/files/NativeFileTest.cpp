// Files on this platform: links, modes, pipes, full disks, and each system call failing in turn.

#include "FileCalls.h"
#include "SavedFileTest.h"
#include "tests/support/CurrentFolder.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace
{
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

class NativeFile : public SavedFileTest
{
protected:
    void link(const char* target, const OdString& name) { ASSERT_EQ(::symlink(target, nativeName(name).c_str()), 0); }

    FileCallsReset m_reset;
};
} // namespace

// Temporary file, five pieces, flush, close, rename. The search for stale files, the lock and the flush of the folder
// may fail; if the mode cannot be set, the file is rewritten in place.
constexpr int essentialCalls = 1 + 5 + 1 + 1 + 1;

TEST_F(NativeFile, anyFailureLeavesTheOldFileIntact)
{
    const int refused = failEachCall(
        m_name, EIO, [&] { putContent(m_name, "old"); },
        [&](const char* reason, int n)
        {
            EXPECT_EQ(contentOf(m_name), reason ? "old" : "brand new") << n;
            EXPECT_EQ(names(), Names{"A4.pc3"}) << n;
        });
    EXPECT_EQ(refused, essentialCalls);
}

TEST_F(NativeFile, anyFailureLeavesACompleteFileOrNone)
{
    const int refused = failEachCall(
        m_name, EIO, [&] { std::filesystem::remove(pathOf(m_name)); },
        [&](const char* reason, int n)
        {
            EXPECT_EQ(names(), reason ? Names{} : Names{"A4.pc3"}) << n;
            EXPECT_EQ(contentOf(m_name), reason ? "" : "brand new") << n;
        });
    EXPECT_EQ(refused, essentialCalls);
}

TEST_F(NativeFile, anInterruptedWriteIsRepeated)
{
    putContent(m_name, "old");
    int interrupted = 0;
    FileCalls::now().inPieces = true;
    FileCalls::now().failure = EINTR;
    FileCalls::now().before = [&](FileCall call)
    {
        // Every piece is interrupted once.
        if (call == FileCall::write && FileCalls::now().failAt != FileCalls::now().made - 1)
        {
            FileCalls::now().failAt = FileCalls::now().made;
            ++interrupted;
        }
    };
    EXPECT_EQ(write("brand new"), "was written");
    EXPECT_EQ(interrupted, 5);
    EXPECT_EQ(contentOf(m_name), "brand new");
}

TEST_F(NativeFile, aFullDiskLeavesTheOldFile)
{
    putContent(m_name, "old");
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 4096;
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string result = write(std::string(100000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);

    EXPECT_EQ(result, "there is not enough room on the disk");
    EXPECT_EQ(contentOf(m_name), "old");
    EXPECT_EQ(names(), Names{"A4.pc3"});
}

TEST_F(NativeFile, aLinkIsFollowed)
{
    m_folder.addFolder("here");
    m_folder.addFolder("there");
    putContent(m_folder.at("there/A4.pc3"), "old");
    link("../there/A4.pc3", m_folder.at("here/first.pc3"));
    link("first.pc3", m_folder.at("here/second.pc3"));

    EXPECT_EQ(write(m_folder.at("here/second.pc3"), "new"), "was written");
    EXPECT_EQ(contentOf(m_folder.at("there/A4.pc3")), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("here/first.pc3"))));
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("here/second.pc3"))));
    EXPECT_EQ(namesIn(m_folder.at("there")), Names{"A4.pc3"});
}

TEST_F(NativeFile, aDanglingLinkCreatesItsTarget)
{
    const OdString target = m_folder.at("target.pc3");
    link(nativeName(target).c_str(), m_folder.at("link.pc3"));
    EXPECT_EQ(write(m_folder.at("link.pc3"), "new"), "was written");
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_folder.at("link.pc3"))));
}

TEST_F(NativeFile, circularLinksAreRefused)
{
    link("b.pc3", m_name);
    link("A4.pc3", m_folder.at("b.pc3"));
    EXPECT_EQ(write(), "the links to the file form a loop");
    EXPECT_EQ(read(), "the links to the file form a loop");
}

TEST_F(NativeFile, aNewFileHasTheUsualMode)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(write(), "was written");
    ::umask(before);
    EXPECT_EQ(modeOf(m_name), 0640U);
}

TEST_F(NativeFile, pipesAndDevicesAreRefusedWithoutBlocking)
{
    const OdString pipe = m_folder.at("pipe.pc3");
    ASSERT_EQ(::mkfifo(nativeName(pipe).c_str(), 0600), 0);
    constexpr auto reason = "that is a folder or a device, not a file";
    EXPECT_EQ(read(pipe), reason);
    EXPECT_EQ(write(pipe, "new"), reason);
    EXPECT_EQ(read(m_folder.path()), reason);
    for (const OdChar* device : {OD_T("/dev/null"), OD_T("/dev/full"), OD_T("/dev/zero")})
    {
        EXPECT_EQ(read(device), reason);
        EXPECT_EQ(write(device, "new"), reason);
    }
    EXPECT_TRUE(std::filesystem::is_fifo(pathOf(pipe)));
    EXPECT_EQ(names(), Names{"pipe.pc3"});
}

TEST_F(NativeFile, aPathMayHaveTheLongestLength)
{
    std::filesystem::path path;
    for (int i = 0; i < 10; ++i)
        path /= std::string(200, 'x');
    m_folder.addFolder(path);
    EXPECT_EQ(write(m_folder.at(path / "A4.pc3"), "old"), "was written");
    EXPECT_EQ(write(m_folder.at(path / "A4.pc3"), "new"), "was written");
    EXPECT_EQ(read(m_folder.at(path / "A4.pc3")), "new");

    OdString tooLong = m_folder.path();
    while (tooLong.getLength() < PATH_MAX)
        tooLong += OD_T("/./././././././././.");
    EXPECT_EQ(write(tooLong + OD_T("/A4.pc3"), "new"), "the name of the file is too long");
    EXPECT_EQ(read(tooLong + OD_T("/A4.pc3")), "the name of the file is too long");
}

// The name of the temporary file is short, so that of the target may have any valid length.
TEST_F(NativeFile, aNameMayHaveTheLongestLength)
{
    const std::string end = ".pc3";
    const OdString longest = m_folder.at(std::string(NAME_MAX - end.size(), 'x') + end);
    EXPECT_EQ(write(longest, "old"), "was written");
    EXPECT_EQ(write(longest, "new"), "was written");
    EXPECT_EQ(contentOf(longest), "new");

    const OdString tooLong = m_folder.at(std::string(NAME_MAX - end.size() + 1, 'x') + end);
    EXPECT_EQ(write(tooLong, "new"), "the name of the file is too long");
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(NativeFile, aNameThatIsNotUnicodeIsRefused)
{
    const OdChar lone[] = {'x', 0xD800, 0};
    EXPECT_EQ(write(lone, "new"), "that is not a valid file name");
    EXPECT_EQ(read(lone), "that is not a valid file name");
}

TEST_F(NativeFile, theReasonDependsOnTheSystemError)
{
    const std::pair<int, std::string> reasons[] = {{EACCES, "the file or its folder is protected"},
                                                   {EPERM, "the file or its folder is protected"},
                                                   {EROFS, "the file or its folder is protected"},
                                                   {ENOSPC, "there is not enough room on the disk"},
                                                   {EDQUOT, "there is not enough room on the disk"}};
    for (const auto& [error, expected] : reasons)
    {
        bool reported = false;
        failEachCall(
            m_name, error, [&] { putContent(m_name, "old"); },
            [&](const char* reason, int) { reported = reported || (reason && reason == expected); });
        EXPECT_TRUE(reported) << error << ": " << expected;
    }
}

TEST_F(NativeFile, aFileIsNotAFolder)
{
    putContent(m_name, "old");
    const OdString inside = m_name + OD_T("/inside.pc3");
    EXPECT_EQ(write(inside, "new"), "the file or its folder does not exist");
    EXPECT_EQ(read(inside), "the file or its folder does not exist");
    EXPECT_EQ(contentOf(m_name), "old");
}

TEST_F(NativeFile, aBareNameIsInTheCurrentFolder)
{
    {
        const CurrentFolder inside(m_folder.path());
        EXPECT_EQ(write(OD_T("A4.pc3"), "new"), "was written");
        EXPECT_EQ(read(OD_T("A4.pc3")), "new");
    }
    EXPECT_EQ(contentOf(m_name), "new");
}

// Files of the system that report a size of 0, like a file that grows while it is read, and that fail in the middle.
TEST_F(NativeFile, aFileMayGrowWhileItIsRead)
{
    EXPECT_GT(read(OD_T("/proc/self/maps")).size(), 1000U);
    EXPECT_EQ(read(OD_T("/proc/self/mem")), "the file cannot be read");
}
