// Writers that are killed, and what the next one finds: every file is whole, old or new, and what is left behind goes
// with the next write, but never the file of a writer that lives.

#include "pia_tree/FileAccess.h"
#include "pia_tree/TempName.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/pia/FolderTools.h"
#include "tests/win/pia/WinFileCalls.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace
{
using Names = std::vector<std::string>;

class KilledWriter : public testing::Test
{
protected:
    static std::string write(const OdString& name, std::string_view bytes = "new")
    {
        const char* reason = pia::replaceFile(name.c_str(), bytes);
        return reason ? reason : "was written";
    }

    // The exit status of the program that dies right after the n-th call.
    DWORD runWriter(int n) const
    {
        wchar_t self[MAX_PATH] = {};
        ::GetModuleFileNameW(nullptr, self, MAX_PATH);
        const auto program = std::filesystem::path(self).parent_path() / "pia_killed_writer.exe";
        std::wstring line = L"\"" + program.wstring() + L"\" \"" + m_name.c_str() + L"\" " + std::to_wstring(n);
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION child = {};
        if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &child))
            throw std::runtime_error("pia_killed_writer.exe cannot be started");
        ::WaitForSingleObject(child.hProcess, INFINITE);
        DWORD status = 0;
        ::GetExitCodeProcess(child.hProcess, &status);
        ::CloseHandle(child.hThread);
        ::CloseHandle(child.hProcess);
        return status;
    }

    // Kills a writer at every step, with the file as prepare left it.
    template <class Prepare, class Check>
    int killAfterEachCall(Prepare prepare, Check check)
    {
        for (int n = 1;; ++n)
        {
            prepare();
            const DWORD status = runWriter(n);
            check();
            EXPECT_EQ(write(m_folder.at("other.pc3")), "was written");
            std::filesystem::remove(pathOf(m_folder.at("other.pc3")));
            check();
            EXPECT_LE(namesIn(m_folder.path()).size(), 1U) << "left behind after call " << n;
            if (status != 3)
            {
                EXPECT_EQ(status, 0U);
                return n - 1;
            }
        }
    }

    void putOld(const std::string& name)
    {
        putContent(m_folder.at(name), "half a fi");
        const HANDLE file =
            ::CreateFileW(m_folder.at(name).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        FILETIME created = {};
        FILETIME unused = {};
        ::GetProcessTimes(::GetCurrentProcess(), &created, &unused, &unused, &unused);
        created.dwHighDateTime -= 1; // some minutes
        EXPECT_TRUE(::SetFileTime(file, nullptr, nullptr, &created));
        ::CloseHandle(file);
    }

    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
};
} // namespace

TEST_F(KilledWriter, leavesTheOldFileOrTheNewOne)
{
    int old = 0;
    int brandNew = 0;
    const int kills = killAfterEachCall([&] { putContent(m_name, "old"); },
                                        [&]
                                        {
                                            const std::string content = contentOf(m_name);
                                            EXPECT_TRUE(content == "old" || content == "brand new") << content;
                                            ++(content == "old" ? old : brandNew);
                                        });
    // The file, its bytes, their flush, the exchange, its flush, the close: with what surrounds them.
    EXPECT_GE(kills, 8);
    EXPECT_GT(old, 0);
    EXPECT_GT(brandNew, 0);
}

TEST_F(KilledWriter, leavesAWholeNewFileOrNone)
{
    killAfterEachCall([&] { std::filesystem::remove(pathOf(m_name)); },
                      [&]
                      {
                          const bool there = std::filesystem::exists(pathOf(m_name));
                          EXPECT_EQ(contentOf(m_name), there ? "brand new" : "");
                      });
}

TEST_F(KilledWriter, aFileThatIsBeingWrittenStaysWhateverTheNumberInItsName)
{
    const std::string name = "~gm2147483632_0.tmp"; // no process has that
    const HANDLE writer =
        ::CreateFileW(m_folder.at(name).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", name}));
    ::CloseHandle(writer);
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

// After a restart numbers are given out again: also our own.
TEST_F(KilledWriter, itsNumberMayBeThatOfAYoungerProcessByNow)
{
    putOld(pia::nextTempName(::GetCurrentProcessId()));
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

// Two threads may save at the same time.
TEST_F(KilledWriter, aWriteInTheMiddleOfAnotherOfTheSameProcessLeavesItAlone)
{
    const OdString other = m_folder.at("A3.pc3");
    WinFileCalls calls;
    int flushes = 0;
    calls.before = [&](WinFileCalls::Call call)
    {
        if (call != WinFileCalls::flush || flushes++ != 0)
            return;
        EXPECT_EQ(namesIn(m_folder.path()).size(), 1U);
        EXPECT_EQ(write(other, "inner"), "was written");
    };
    EXPECT_EQ(write(m_name, "outer"), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A3.pc3", "A4.pc3"}));
    EXPECT_EQ(contentOf(m_name), "outer");
    EXPECT_EQ(contentOf(other), "inner");
}
