// Writers that are killed: every file stays complete, old or new, and a later write removes what they left behind, but
// never the temporary file of a running writer.

#include "FileCalls.h"
#include "SavedFileTest.h"
#include "files/TempName.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace
{
class KilledWriter : public SavedFileTest
{
protected:
    // Runs a process that is killed right before or after the n-th call of a write. False if the write makes fewer
    // calls and succeeds.
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
            ::_exit(files::replaceFile(name.c_str(), bytes) ? 1 : 0);
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

    // Makes all temporary files two hours old.
    void ageTemporaryFiles()
    {
        for (const std::string& name : names())
            if (name.ends_with(".tmp"))
                putOldContent(m_folder.at(name), contentOf(m_folder.at(name)));
    }

    // Kills a writer at each call in turn; prepare sets up the file before each attempt.
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
                ageTemporaryFiles();
                EXPECT_EQ(write(m_folder.at("other.pc3"), "other"), "was written");
                std::filesystem::remove(pathOf(m_folder.at("other.pc3")));
                check();
                EXPECT_LE(names().size(), 1U) << "left behind after call " << n;
                if (!died)
                    break;
                ++kills;
            }
        return kills;
    }

    FileCallsReset m_reset;
};

// A process in the middle of a write: its temporary file is complete but not flushed.
class RunningWriter
{
public:
    explicit RunningWriter(const OdString& name)
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
            ::_exit(files::replaceFile(name.c_str(), "of the running writer") ? 1 : 0);
        }
        ::close(entered[1]);
        ::close(leave[0]);
        m_leave = leave[1];
        char byte = 0;
        if (::read(entered[0], &byte, 1) != 1)
            throw std::runtime_error("no writer");
        ::close(entered[0]);
    }

    // Lets it continue and returns its exit status.
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
    // Create, lock, search for stale files, mode, five pieces, flush, close, rename, flush of the folder.
    EXPECT_GE(kills, 2 * 13);
    EXPECT_GT(old, 0);
    EXPECT_GT(brandNew, 0);
}

TEST_F(KilledWriter, leavesACompleteNewFileOrNone)
{
    killAtEachCall([&] { std::filesystem::remove(pathOf(m_name)); },
                   [&]
                   {
                       const bool there = std::filesystem::exists(pathOf(m_name));
                       EXPECT_EQ(contentOf(m_name), there ? "brand new" : "");
                   });
}

TEST_F(KilledWriter, isCleanedUpAfterUnlessItIsRunning)
{
    RunningWriter killed(m_name);
    RunningWriter running(m_folder.at("A3.pc3"));
    EXPECT_EQ(names().size(), 2U);
    ageTemporaryFiles();
    EXPECT_EQ(write(m_folder.at("A2.pc3"), "new"), "was written");
    EXPECT_EQ(names().size(), 3U);

    killed.kill();
    EXPECT_EQ(write(m_folder.at("A2.pc3"), "new"), "was written");
    EXPECT_EQ(names().size(), 2U);

    EXPECT_EQ(running.finish(), 0);
    EXPECT_EQ(names(), (Names{"A2.pc3", "A3.pc3"}));
    EXPECT_EQ(contentOf(m_folder.at("A3.pc3")), "of the running writer");
}

// Two threads may save at the same time.
TEST_F(KilledWriter, nestedWritesOfOneProcessDoNotInterfere)
{
    const OdString other = m_folder.at("A3.pc3");
    int flushes = 0;
    FileCalls::now().before = [&](FileCall call)
    {
        if (call != FileCall::fsync || flushes++ != 0)
            return;
        EXPECT_EQ(names().size(), 1U);
        EXPECT_EQ(write(other, "inner"), "was written");
    };
    EXPECT_EQ(write(m_name, "outer"), "was written");
    EXPECT_EQ(names(), (Names{"A3.pc3", "A4.pc3"}));
    EXPECT_EQ(contentOf(m_name), "outer");
    EXPECT_EQ(contentOf(other), "inner");
}

TEST_F(KilledWriter, withoutLocksNoFileIsRemoved)
{
    FileCalls::now().fail(FileCall::lock, ENOLCK);
    const std::string name = "~gm0123456789abcdef.tmp";
    putOldContent(m_folder.at(name), "being written");
    EXPECT_EQ(write(m_name, "new"), "was written");
    EXPECT_EQ(names(), (Names{"A4.pc3", name}));
}

TEST_F(KilledWriter, leavesACopyWhileRewritingInPlace)
{
    const OdString other = m_folder.at("other-name");
    const OdString spare = m_name + OD_T(".new");
    int torn = 0;
    for (int n = 1;; ++n)
    {
        std::filesystem::remove(pathOf(other));
        std::filesystem::remove(pathOf(spare));
        putContent(m_name, "old");
        std::filesystem::create_hard_link(pathOf(m_name), pathOf(other));
        const bool died = dies(n, true, m_name, "brand new");
        const std::string content = contentOf(m_name);
        EXPECT_EQ(contentOf(other), content);
        if (content != "old" && content != "brand new")
        {
            EXPECT_EQ(contentOf(spare), "brand new") << "after call " << n;
            ++torn;
        }
        if (!died)
            break;
    }
    EXPECT_GT(torn, 0);
    EXPECT_FALSE(std::filesystem::exists(pathOf(spare)));
}
