// What only this platform's files can do: files that others hold open, pipes, devices, attributes, relative names.

#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/processcounts/ProcessCounts.h"
#include "tests/unit/files/FolderTools.h"
#include "tests/win/files/WinFileCalls.h"
#include "win32/windows/SystemHandles.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace
{
using Names = std::vector<std::string>;

std::string refusal(const OdString& name)
{
    const char* reason = files::replaceFile(name.c_str(), "new");
    return reason ? reason : "was written";
}

std::string refusalToRead(const OdString& name)
{
    files::ByteBuffer bytes;
    const char* reason = files::readFile(name.c_str(), bytes);
    return reason ? reason : "was read";
}

class WinFile : public testing::Test
{
protected:
    TemporaryFolder m_folder;
};
} // namespace

TEST_F(WinFile, heldFileStaysIntactWithoutLeftovers)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    KernelHandle other(::CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other);
    std::string answer;
    {
        WinFileCalls calls;
        answer = refusal(name);
        // 1, 2, 4, 8, 16 and then 32 milliseconds each: two seconds.
        EXPECT_EQ(calls.waits, 5 + 62);
    }
    other.reset();

    EXPECT_EQ(answer, "another program is using the file");
    EXPECT_EQ(contentOf(name), "old");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
    EXPECT_EQ(refusal(name), "was written");
    EXPECT_EQ(contentOf(name), "new");
}

TEST_F(WinFile, exclusivelyHeldFileIsNotRead)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    KernelHandle other(::CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other);
    {
        WinFileCalls calls;
        EXPECT_EQ(refusalToRead(name), "another program is using the file");
        EXPECT_EQ(calls.waits, 5 + 62);
    }
    other.reset();
    EXPECT_EQ(refusalToRead(name), "was read");
}

TEST_F(WinFile, theReadOnlyAttributeIsHonoured)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    ASSERT_TRUE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(refusal(name), "the file is read-only");
    EXPECT_EQ(contentOf(name), "old");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WinFile, pipesAndDevicesAreRefusedWithoutWaiting)
{
    const OdString pipeName = OD_T("\\\\.\\pipe\\garm-") + OdString(m_folder.path().right(9));
    KernelHandle pipe(::CreateNamedPipeW(pipeName.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 4, 64, 64, 0, nullptr));
    ASSERT_TRUE(pipe);
    EXPECT_NE(refusalToRead(pipeName), "was read");
    EXPECT_NE(refusal(pipeName), "was written");
    pipe.reset();

    EXPECT_EQ(refusalToRead(OD_T("NUL")), "that is a folder or a device, not a file");
    EXPECT_EQ(refusal(OD_T("NUL")), "that is a folder or a device, not a file");
}

TEST_F(WinFile, relativeNameIsMeantFromCurrentFolder)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(pathOf(m_folder.path()));
    EXPECT_EQ(refusal(OD_T("A4.pc3")), "was written");
    EXPECT_EQ(refusal(OD_T(".\\A4.pc3")), "was written");
    EXPECT_EQ(refusalToRead(OD_T("A4.pc3")), "was read");
    std::filesystem::current_path(before);
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(WinFile, pathMayBeLongerThanClassicLimit)
{
    const OdString extended = OD_T("\\\\?\\") + m_folder.path();
    std::vector<OdString> folders;
    OdString path;
    for (int i = 0; i < 10; ++i)
    {
        path += OdString(OD_T("\\")) + OdString(std::wstring(40, static_cast<wchar_t>(L'a' + i)));
        folders.push_back(extended + path);
        ASSERT_TRUE(::CreateDirectoryW(folders.back().c_str(), nullptr));
    }
    const OdString name = m_folder.path() + path + OD_T("\\A4.pc3");
    EXPECT_GT(name.getLength(), 400);
    EXPECT_EQ(refusal(name), "was written");
    EXPECT_EQ(refusal(name), "was written");
    EXPECT_EQ(refusalToRead(name), "was read");

    // Each folder can only be removed when nothing else is in it.
    EXPECT_TRUE(::DeleteFileW((folders.back() + OD_T("\\A4.pc3")).c_str()));
    for (; !folders.empty(); folders.pop_back())
        EXPECT_TRUE(::RemoveDirectoryW(folders.back().c_str()));
}

// The temporary file's name is short, so the target's may be as long as there are.
TEST_F(WinFile, nameMayHaveTheSystemsFullLength)
{
    const OdString folder = OD_T("\\\\?\\") + m_folder.path() + OD_T("\\");
    const OdString longest = folder + OdString(std::wstring(251, L'x')) + OD_T(".pc3");
    EXPECT_EQ(refusal(longest), "was written");
    EXPECT_EQ(refusal(longest), "was written");
    EXPECT_EQ(refusalToRead(longest), "was read");
    EXPECT_TRUE(::DeleteFileW(longest.c_str()));

    EXPECT_NE(refusal(folder + OdString(std::wstring(252, L'x')) + OD_T(".pc3")), "was written");
    EXPECT_EQ(namesIn(m_folder.path()), Names{});
}

TEST_F(WinFile, refusedNameIsReportedAndCreatesNothing)
{
    for (const wchar_t* name : {L"a?.pc3", L"a*.pc3", L"a<.pc3", L"a>.pc3", L"a|.pc3", L"a\".pc3", L"a\x01.pc3"})
        EXPECT_EQ(refusal(m_folder.path() + OD_T("\\") + name), "that is not a valid file name") << OdString(name);
    // Behind the colon would be the name of a stream of the file in front of it.
    putContent(m_folder.at("a"), "old");
    EXPECT_EQ(refusal(m_folder.at("a") + OD_T(":b.pc3")), "that is not a valid file name");
    EXPECT_EQ(contentOf(m_folder.at("a")), "old");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"a"});
}

TEST_F(WinFile, readerRetriesWhileAnotherProgramInterferes)
{
    const OdString name = m_folder.at("A4.pc3");
    putContent(name, "old");
    KernelHandle other(::CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other);
    WinFileCalls calls;
    calls.onWait = [&]
    {
        if (calls.waits == 3)
            other.reset();
    };
    EXPECT_EQ(refusalToRead(name), "was read");
    EXPECT_EQ(calls.waits, 3);
}

TEST_F(WinFile, aMissingFileIsNotWaitedFor)
{
    WinFileCalls calls;
    EXPECT_EQ(refusalToRead(m_folder.at("missing.pc3")), "the file or its folder does not exist");
    EXPECT_EQ(refusal(m_folder.at("missing") + OD_T("\\A4.pc3")), "the file or its folder does not exist");
    EXPECT_EQ(calls.waits, 0);
}

TEST_F(WinFile, noHandleStaysOpen)
{
    const OdString name = m_folder.at("A4.pc3");
    EXPECT_EQ(refusal(name), "was written");
    const std::size_t before = openSystemHandles();
    for (int i = 0; i < 10; ++i)
    {
        EXPECT_EQ(refusal(name), "was written");
        EXPECT_EQ(refusalToRead(name), "was read");
        EXPECT_NE(refusal(m_folder.path()), "was written");
        EXPECT_NE(refusalToRead(m_folder.path()), "was read");
    }
    EXPECT_EQ(openSystemHandles(), before);
}
