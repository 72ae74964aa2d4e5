// What only this platform's files can do: links, modes, pipes, full disks, and system calls that fail one by one.

#include "FileCalls.h"
#include "FolderTools.h"
#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace
{
using Names = std::vector<std::string>;

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
    const char* reason = files::replaceFile(name.c_str(), bytes);
    return reason ? reason : "was written";
}

std::string refusalToRead(const OdString& name)
{
    files::ByteBuffer bytes;
    const char* reason = files::readFile(name.c_str(), bytes);
    return reason ? reason : "was read";
}

class NativeFile : public testing::Test
{
protected:
    void link(const char* target, const OdString& name) { ASSERT_EQ(::symlink(target, nativeName(name).c_str()), 0); }

    // Writes with the n-th call failing; the reason, null after success. reached: there was such a call.
    const char* writeFailing(int n, int error, const OdString& name, bool& reached)
    {
        FileCalls::now() = {};
        FileCalls::now().failAt = n;
        FileCalls::now().failure = error;
        FileCalls::now().inPieces = true;
        const char* reason = files::replaceFile(name.c_str(), "brand new");
        reached = FileCalls::now().made >= n;
        FileCalls::now() = {};
        return reason;
    }

    FileCallsReset m_reset;
    TemporaryFolder m_folder;
};
} // namespace

TEST_F(NativeFile, whateverFailsTheOldFileIsIntactAndNothingIsLeftBehind)
{
    const OdString name = m_folder.at("A4.pc3");
    int refused = 0;
    for (int n = 1;; ++n)
    {
        putContent(name, "old");
        bool reached = false;
        const char* reason = writeFailing(n, EIO, name, reached);
        refused += reason ? 1 : 0;
        EXPECT_EQ(contentOf(name), reason ? "old" : "brand new") << n;
        EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"}) << n;
        if (!reached)
        {
            EXPECT_EQ(reason, nullptr);
            break;
        }
    }
    // The temporary file, five pieces, the flush, the close, the exchange. Looking for stale files, the lock and what
    // comes after the exchange may fail; without the mode, which fails too, the file is rewritten in place.
    EXPECT_EQ(refused, 1 + 5 + 1 + 1 + 1);
}

TEST_F(NativeFile, whateverFailsANewFileIsWholeOrAbsent)
{
    const OdString name = m_folder.at("A4.pc3");
    int refused = 0;
    for (int n = 1;; ++n)
    {
        std::filesystem::remove(pathOf(name));
        bool reached = false;
        const char* reason = writeFailing(n, EIO, name, reached);
        refused += reason ? 1 : 0;
        EXPECT_EQ(namesIn(m_folder.path()), reason ? Names{} : Names{"A4.pc3"}) << n;
        EXPECT_EQ(contentOf(name), reason ? "" : "brand new") << n;
        if (!reached)
            break;
    }
    EXPECT_EQ(refused, 1 + 5 + 1 + 1 + 1);
}

TEST_F(NativeFile, aWriteThatWasInterruptedIsRepeated)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    int interrupted = 0;
    FileCalls::now().inPieces = true;
    FileCalls::now().failure = EINTR;
    FileCalls::now().before = [&](FileCall call)
    {
        // Each piece once.
        if (call == FileCall::write && FileCalls::now().failAt != FileCalls::now().made - 1)
        {
            FileCalls::now().failAt = FileCalls::now().made;
            ++interrupted;
        }
    };
    EXPECT_EQ(refusal(name, "brand new"), "was written");
    EXPECT_EQ(interrupted, 5);
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

// The temporary file's name is short, so the target's may be as long as there are.
TEST_F(NativeFile, aNameMayBeAsLongAsTheSystemTakesIt)
{
    const std::string end = ".pc3";
    const OdString longest = m_folder.at(std::string(NAME_MAX - end.size(), 'x') + end);
    EXPECT_EQ(refusal(longest, "old"), "was written");
    EXPECT_EQ(refusal(longest), "was written");
    EXPECT_EQ(contentOf(longest), "new");

    const OdString tooLong = m_folder.at(std::string(NAME_MAX - end.size() + 1, 'x') + end);
    EXPECT_EQ(refusal(tooLong), "the name of the file is too long");
    EXPECT_EQ(namesIn(m_folder.path()).size(), 1U);
}

TEST_F(NativeFile, aNameThatCannotBeOneHereIsRefused)
{
    const OdChar lone[] = {'x', 0xD800, 0};
    EXPECT_EQ(refusal(lone), "no file has that name");
    EXPECT_EQ(refusalToRead(lone), "no file has that name");
}

TEST_F(NativeFile, theReasonTellsWhatTheSystemSaid)
{
    const OdString name = m_folder.at("A4.pc3");
    const std::pair<int, std::string> reasons[] = {{EACCES, "the file or its folder is protected"},
                                                   {EPERM, "the file or its folder is protected"},
                                                   {EROFS, "the file or its folder is protected"},
                                                   {ENOSPC, "there is not enough room on the disk"},
                                                   {EDQUOT, "there is not enough room on the disk"}};
    for (const auto& [error, expected] : reasons)
    {
        putContent(name, "old");
        bool told = false;
        bool reached = true;
        for (int n = 1; reached; ++n)
        {
            const char* reason = writeFailing(n, error, name, reached);
            told = told || (reason && reason == expected);
        }
        EXPECT_TRUE(told) << error << ": " << expected;
    }
}

TEST_F(NativeFile, aFileIsNoFolder)
{
    putContent(m_folder.at("A4.pc3"), "old");
    const OdString inside = m_folder.at("A4.pc3") + OD_T("/inside.pc3");
    EXPECT_EQ(refusal(inside), "the file or its folder does not exist");
    EXPECT_EQ(refusalToRead(inside), "the file or its folder does not exist");
    EXPECT_EQ(contentOf(m_folder.at("A4.pc3")), "old");
}

TEST_F(NativeFile, aNameWithoutAFolderIsOneOfTheCurrentFolder)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(pathOf(m_folder.path()));
    EXPECT_EQ(refusal(OD_T("A4.pc3")), "was written");
    EXPECT_EQ(refusalToRead(OD_T("A4.pc3")), "was read");
    std::filesystem::current_path(before);
    EXPECT_EQ(contentOf(m_folder.at("A4.pc3")), "new");
}

// Files of the system that say they are empty, as one does that grows while it is read, and that fail in the middle.
TEST_F(NativeFile, aFileMayGrowWhileItIsReadAndMayFail)
{
    files::ByteBuffer bytes;
    ASSERT_EQ(files::readFile(OD_T("/proc/self/maps"), bytes), nullptr);
    EXPECT_GT(bytes.size(), 1000U);
    EXPECT_EQ(refusalToRead(OD_T("/proc/self/mem")), "the file cannot be read");
}
