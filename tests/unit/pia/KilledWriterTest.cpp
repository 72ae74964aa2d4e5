// Writers that are killed, and what the next one finds: every file is whole, old or new, and what is left behind goes
// with the next write, but never the file of a writer that lives.

#include "FileCalls.h"
#include "FolderTools.h"
#include "pia_tree/FileAccess.h"
#include "pia_tree/TempName.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace
{
using Names = std::vector<std::string>;

class KilledWriter : public testing::Test
{
protected:
    static std::string write(const OdString& name, std::string_view bytes)
    {
        const char* reason = pia::replaceFile(name.c_str(), bytes);
        return reason ? reason : "was written";
    }

    // A process that dies at the n-th call of a write, before the call or right after it. False when it made fewer, and
    // so came to the end.
    bool dies(int n, bool after, const OdString& name, std::string_view bytes)
    {
        const pid_t child = ::fork();
        if (child == 0)
        {
            const auto die = [n](FileCall)
            {
                if (FileCalls::now().made == n)
                    ::raise(SIGKILL);
            };
            FileCalls::now() = {};
            (after ? FileCalls::now().after : FileCalls::now().before) = die;
            FileCalls::now().inPieces = true;
            ::_exit(pia::replaceFile(name.c_str(), bytes) ? 1 : 0);
        }
        int status = -1;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        if (WIFSIGNALED(status))
        {
            EXPECT_EQ(WTERMSIG(status), SIGKILL);
            return true;
        }
        EXPECT_EQ(status, 0);
        return false;
    }

    // Kills a writer at every step, with the file as it was put by prepare.
    template <class Prepare, class Check>
    int killAtEachCall(Prepare prepare, Check check)
    {
        int kills = 0;
        for (const bool after : {false, true})
            for (int n = 1;; ++n)
            {
                prepare();
                const bool died = dies(n, after, m_name, "brand new");
                check();
                EXPECT_EQ(write(m_folder.at("other.pc3"), "other"), "was written");
                std::filesystem::remove(pathOf(m_folder.at("other.pc3")));
                check();
                EXPECT_LE(namesIn(m_folder.path()).size(), 1U) << "left behind after call " << n;
                if (!died)
                    break;
                ++kills;
            }
        return kills;
    }

    FileCallsReset m_reset;
    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
};

// A process in the middle of a write: its file is complete, and not yet flushed.
class LivingWriter
{
public:
    explicit LivingWriter(const OdString& name)
    {
        int entered[2];
        int leave[2];
        if (::pipe(entered) != 0 || ::pipe(leave) != 0)
            throw std::runtime_error("no pipe");
        m_process = ::fork();
        if (m_process == 0)
        {
            ::close(entered[0]);
            ::close(leave[1]);
            FileCalls::now() = {};
            bool paused = false;
            FileCalls::now().before = [&](FileCall call)
            {
                char byte = 0;
                if (call == FileCall::fsync && !std::exchange(paused, true) &&
                    (::write(entered[1], &byte, 1) != 1 || ::read(leave[0], &byte, 1) != 0))
                    ::_exit(2);
            };
            ::_exit(pia::replaceFile(name.c_str(), "of the living") ? 1 : 0);
        }
        ::close(entered[1]);
        ::close(leave[0]);
        m_leave = leave[1];
        char byte = 0;
        if (::read(entered[0], &byte, 1) != 1)
            throw std::runtime_error("no writer");
        ::close(entered[0]);
    }

    // Lets it go on; its exit status.
    int finish()
    {
        ::close(m_leave);
        return status();
    }

    void kill()
    {
        ::kill(m_process, SIGKILL);
        ::close(m_leave);
        status();
    }

private:
    int status() const
    {
        int result = -1;
        ::waitpid(m_process, &result, 0);
        return result;
    }

    pid_t m_process = -1;
    int m_leave = -1;
};
} // namespace

TEST_F(KilledWriter, leavesTheOldFileOrTheNewOne)
{
    int old = 0;
    int brandNew = 0;
    const int kills = killAtEachCall([&] { putContent(m_name, "old"); },
                                     [&]
                                     {
                                         const std::string content = contentOf(m_name);
                                         EXPECT_TRUE(content == "old" || content == "brand new") << content;
                                         ++(content == "old" ? old : brandNew);
                                     });
    // Looking for what others left, the file, its lock, the second handle, its mode, five pieces, the flush, the
    // closing, the exchange, the flush of the folder.
    EXPECT_GE(kills, 2 * 14);
    EXPECT_GT(old, 0);
    EXPECT_GT(brandNew, 0);
}

TEST_F(KilledWriter, leavesAWholeNewFileOrNone)
{
    killAtEachCall([&] { std::filesystem::remove(pathOf(m_name)); },
                   [&]
                   {
                       const bool there = std::filesystem::exists(pathOf(m_name));
                       EXPECT_EQ(contentOf(m_name), there ? "brand new" : "");
                   });
}

TEST_F(KilledWriter, whatItLeftGoesWithTheNextWriteAndTheFileOfALivingOneStays)
{
    LivingWriter killed(m_name);
    LivingWriter living(m_folder.at("A3.pc3"));
    EXPECT_EQ(namesIn(m_folder.path()).size(), 2U);
    EXPECT_EQ(write(m_folder.at("A2.pc3"), "new"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()).size(), 3U);

    killed.kill();
    EXPECT_EQ(write(m_folder.at("A2.pc3"), "new"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()).size(), 2U);

    EXPECT_EQ(living.finish(), 0);
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A2.pc3", "A3.pc3"}));
    EXPECT_EQ(contentOf(m_folder.at("A3.pc3")), "of the living");
}

// Two threads may save at the same time.
TEST_F(KilledWriter, aWriteInTheMiddleOfAnotherOfTheSameProcessLeavesItAlone)
{
    const OdString other = m_folder.at("A3.pc3");
    int within = 0;
    FileCalls::now().before = [&](FileCall call)
    {
        if (call != FileCall::fsync || within++ != 0)
            return;
        EXPECT_EQ(namesIn(m_folder.path()).size(), 1U);
        EXPECT_EQ(write(other, "inner"), "was written");
    };
    EXPECT_EQ(write(m_name, "outer"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A3.pc3", "A4.pc3"}));
    EXPECT_EQ(contentOf(m_name), "outer");
    EXPECT_EQ(contentOf(other), "inner");
}

// After a restart, and in a container with every start, numbers are given out again: also our own.
TEST_F(KilledWriter, itsNumberMayBeThatOfAnotherProcessByNow)
{
    putContent(m_folder.at(pia::nextTempName(static_cast<std::uint32_t>(::getpid()))), "half a fi");
    putContent(m_folder.at(pia::nextTempName(static_cast<std::uint32_t>(::getppid()))), "half a fi");
    EXPECT_EQ(write(m_name, "new"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(KilledWriter, withoutLocksTheNumberDecides)
{
    FileCalls::now().before = [](FileCall call)
    {
        if (call == FileCall::flock)
            FileCalls::now().failAt = FileCalls::now().made;
    };
    FileCalls::now().failure = ENOLCK;
    const std::string mine = pia::nextTempName(static_cast<std::uint32_t>(::getpid()));
    putContent(m_folder.at(mine), "being written");
    putContent(m_folder.at("~gm2147483632_0.tmp"), "half a fi");
    EXPECT_EQ(write(m_name, "new"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", mine}));
}

// Another writer looks for files left behind just between the making and the locking of ours.
TEST_F(KilledWriter, aFileThatIsTakenForOneLeftBehindIsMadeAgain)
{
    bool removed = false;
    FileCalls::now().before = [&](FileCall call)
    {
        if (call != FileCall::flock || std::exchange(removed, true))
            return;
        EXPECT_EQ(write(m_folder.at("A3.pc3"), "inner"), "was written");
        EXPECT_EQ(namesIn(m_folder.path()), Names{"A3.pc3"}) << "it had no lock yet";
    };
    EXPECT_EQ(write(m_name, "new"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A3.pc3", "A4.pc3"}));
    EXPECT_EQ(contentOf(m_name), "new");
}

TEST_F(KilledWriter, aFileThatIsLockedByWhoTakesItForOneLeftBehindIsMadeAgain)
{
    bool locked = false;
    FileCalls::now().before = [&](FileCall call)
    {
        if (call == FileCall::flock && !std::exchange(locked, true))
            FileCalls::now().failAt = FileCalls::now().made;
    };
    FileCalls::now().failure = EWOULDBLOCK;
    EXPECT_EQ(write(m_name, "new"), "was written");
    EXPECT_EQ(contentOf(m_name), "new");
    // That one belongs to who has the lock.
    EXPECT_EQ(write(m_name, "newer"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}
