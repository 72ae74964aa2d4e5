// Writers that are killed, and what the next one finds: every file is whole, old or new, and what is left behind goes
// with a later write, but never the file of a writer that lives.

#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/files/FolderTools.h"
#include "tests/win/files/WinFileCalls.h"
#include "win32/windows/SystemHandles.h"

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
        const char* reason = files::replaceFile(name.c_str(), bytes);
        return reason ? reason : "was written";
    }

    // The exit status of the program that dies right after the n-th call.
    DWORD runWriter(int n) const
    {
        wchar_t self[MAX_PATH] = {};
        ::GetModuleFileNameW(nullptr, self, MAX_PATH);
        const auto program = std::filesystem::path(self).parent_path() / "killed_writer.exe";
        std::wstring line = L"\"" + program.wstring() + L"\" \"" + m_name.c_str() + L"\" " + std::to_wstring(n);
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION child = {};
        if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &child))
            throw std::runtime_error("killed_writer.exe cannot be started");
        const KernelHandle thread(child.hThread);
        const KernelHandle process(child.hProcess);
        ::WaitForSingleObject(process.get(), INFINITE);
        DWORD status = 0;
        ::GetExitCodeProcess(process.get(), &status);
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
            ageTemporaryFiles();
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

    // As if they had been there for two hours.
    void ageTemporaryFiles()
    {
        for (const std::string& name : namesIn(m_folder.path()))
            if (name.ends_with(".tmp"))
                putOldContent(m_folder.at(name), contentOf(m_folder.at(name)));
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

TEST_F(KilledWriter, fileBeingWrittenStaysHoweverOld)
{
    const std::string name = "~gm0123456789abcdef.tmp";
    putOldContent(m_folder.at(name), "being written");
    KernelHandle writer(::CreateFileW(m_folder.at(name).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", name}));
    writer.reset();
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

// Two threads may save at the same time.
TEST_F(KilledWriter, nestedWriteLeavesTheOuterOneAlone)
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
