// How a new file takes the old one's place, call by call, and what a failure of each of them leaves.

#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/files/FolderTools.h"
#include "tests/win/files/WinFileCalls.h"
#include "win32/windows/SystemHandles.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <aclapi.h>
#include <cstring>

namespace
{
using Names = std::vector<std::string>;

// FileRenameInfoEx: replace, and also a file that is open.
constexpr int renameWhileOpen = 22;

class WinExchange : public testing::Test
{
protected:
    static std::string write(const OdString& name, std::string_view bytes = "brand new")
    {
        const char* reason = files::replaceFile(name.c_str(), bytes);
        return reason ? reason : "was written";
    }

    // The file, open in a program that allows reading, writing, renaming and deleting.
    KernelHandle openForAll() const
    {
        KernelHandle file(::CreateFileW(m_name.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        0, nullptr));
        EXPECT_TRUE(file);
        return file;
    }

    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
};

// Refuses to rename, as a system does while a program has the target open.
BOOL refuseToRename(HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information, DWORD size)
{
    if (which != FileRenameInfo && static_cast<int>(which) != renameWhileOpen)
        return ::SetFileInformationByHandle(file, which, information, size);
    ::SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}
} // namespace

TEST_F(WinExchange, anyFailureLeavesOnlyTheIntactOldFile)
{
    int refused = 0;
    for (int n = 1;; ++n)
    {
        putContent(m_name, "old");
        std::string answer;
        bool reached = false;
        {
            WinFileCalls calls;
            calls.failAt = n;
            answer = write(m_name);
            reached = calls.made >= n;
        }
        const bool done = answer == "was written";
        refused += done ? 0 : 1;
        EXPECT_EQ(contentOf(m_name), done ? "brand new" : "old") << n;
        EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"}) << n;
        if (!reached)
        {
            EXPECT_TRUE(done);
            break;
        }
    }
    // The look at the target, twice, the temporary file, its bytes, their flush and its close. What is taken over of
    // the target may fail, and a rename that fails has others after it.
    EXPECT_EQ(refused, 6);
}

TEST_F(WinExchange, whateverFailsNewFileIsWholeOrAbsent)
{
    for (int n = 1;; ++n)
    {
        std::filesystem::remove(pathOf(m_name));
        std::string answer;
        bool reached = false;
        {
            WinFileCalls calls;
            calls.failAt = n;
            answer = write(m_name);
            reached = calls.made >= n;
        }
        const bool done = answer == "was written";
        EXPECT_EQ(namesIn(m_folder.path()), done ? Names{"A4.pc3"} : Names{}) << n;
        EXPECT_EQ(contentOf(m_name), done ? "brand new" : "") << n;
        if (!reached)
            break;
    }
}

TEST_F(WinExchange, aFullDiskIsToldWhereverItShows)
{
    for (const DWORD error : {DWORD{ERROR_DISK_FULL}, DWORD{ERROR_HANDLE_DISK_FULL}})
        for (const auto full : {WinFileCalls::createFile, WinFileCalls::writeFile, WinFileCalls::flush})
        {
            putContent(m_name, "old");
            WinFileCalls calls;
            calls.error = error;
            bool temporary = false;
            calls.before = [&](WinFileCalls::Call call)
            {
                // The third file that is opened is the temporary one: before come two looks at the target.
                if (call == full && (call != WinFileCalls::createFile || (!temporary && calls.made > 2)))
                {
                    temporary = true;
                    calls.failAt = calls.made;
                }
            };
            EXPECT_EQ(write(m_name), "there is not enough room on the disk");
            EXPECT_EQ(contentOf(m_name), "old");
            EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
        }
}

TEST_F(WinExchange, openFileIsReplacedIfItsUsersAllow)
{
    putContent(m_name, "old");
    KernelHandle reader = openForAll();
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(contentOf(m_name), "brand new");
    // Who has the old file reads it to its end.
    char bytes[8] = {};
    DWORD got = 0;
    EXPECT_TRUE(::ReadFile(reader.get(), bytes, sizeof bytes, &got, nullptr));
    EXPECT_EQ(std::string_view(bytes, got), "old");
    reader.reset();
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(WinExchange, openTemporaryFileIsRenamedInOneStep)
{
    putContent(m_name, "old");
    int renames = 0;
    {
        WinFileCalls calls;
        calls.onSetInformation = [&](HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information, DWORD size)
        {
            if (static_cast<int>(which) != renameWhileOpen)
            {
                EXPECT_NE(which, FileRenameInfo);
                return ::SetFileInformationByHandle(file, which, information, size);
            }
            ++renames;
            // A system that knows it: 1 replaces, 2 also an open file. Here the plain form has to do.
            DWORD flags = 0;
            std::memcpy(&flags, information, sizeof flags);
            EXPECT_EQ(flags, 3U);
            const auto* rename = static_cast<const FILE_RENAME_INFO*>(information);
            EXPECT_EQ(rename->RootDirectory, nullptr);
            const OdString name(std::wstring(rename->FileName, rename->FileNameLength / sizeof(wchar_t)));
            EXPECT_TRUE(name.right(7) == OD_T("\\A4.pc3")) << name;
            const DWORD plain = TRUE;
            std::memcpy(information, &plain, sizeof plain);
            return ::SetFileInformationByHandle(file, FileRenameInfo, information, size);
        };
        calls.before = [](WinFileCalls::Call call)
        {
            EXPECT_NE(call, WinFileCalls::replaceFile);
            EXPECT_NE(call, WinFileCalls::moveFile);
        };
        EXPECT_EQ(write(m_name), "was written");
    }
    EXPECT_EQ(renames, 1);
    EXPECT_EQ(contentOf(m_name), "brand new");
}

TEST_F(WinExchange, failedExchangeLeavesTheTargetAndIsReported)
{
    putContent(m_name, "old");
    WinFileCalls calls;
    calls.onSetInformation = &refuseToRename;
    calls.onReplaceFile = [](const wchar_t*)
    {
        ::SetLastError(ERROR_SHARING_VIOLATION);
        return FALSE;
    };
    EXPECT_EQ(write(m_name), "another program is using the file");
    // 1, 2, 4, 8, 16 and then 32 milliseconds each: two seconds.
    EXPECT_EQ(calls.waits, 5 + 62);
    EXPECT_EQ(contentOf(m_name), "old");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

TEST_F(WinExchange, writerRetriesWhileAnotherProgramInterferes)
{
    putContent(m_name, "old");
    WinFileCalls calls;
    calls.onSetInformation = [&](HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information, DWORD size)
    {
        return calls.waits < 3 ? refuseToRename(file, which, information, size)
                               : ::SetFileInformationByHandle(file, which, information, size);
    };
    calls.onReplaceFile = [](const wchar_t*)
    {
        ::SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    };
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(calls.waits, 3);
    EXPECT_EQ(contentOf(m_name), "brand new");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

// Wine's ReplaceFileW leaves files behind, and for a moment there is no target.
TEST_F(WinExchange, wineAvoidsReplaceFileForOpenFiles)
{
    putContent(m_name, "old");
    KernelHandle reader = openForAll();
    WinFileCalls calls;
    calls.wineTools = true;
    calls.before = [](WinFileCalls::Call call)
    {
        EXPECT_NE(call, WinFileCalls::replaceFile);
        EXPECT_NE(call, WinFileCalls::moveFile);
    };
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(calls.waits, 0);
    reader.reset();
    EXPECT_EQ(contentOf(m_name), "brand new");
    EXPECT_EQ(namesIn(m_folder.path()), Names{"A4.pc3"});
}

// At the moment it has the target's name every program may open it, also one that shares nothing.
TEST_F(WinExchange, newFileIsFreeWhenItHasName)
{
    putContent(m_name, "old");
    int looked = 0;
    for (const bool wineTools : {false, true})
    {
        WinFileCalls calls;
        calls.wineTools = wineTools;
        calls.after = [&](WinFileCalls::Call call)
        {
            if (call != WinFileCalls::closeHandle || contentOf(m_name) != "brand new")
                return;
            EXPECT_TRUE(
                KernelHandle(::CreateFileW(m_name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)))
                << ::GetLastError();
            ++looked;
        };
        EXPECT_EQ(write(m_name), "was written");
    }
    EXPECT_GE(looked, 2);
}

// ReplaceFileW has its own error for this: the target has another name by then.
TEST_F(WinExchange, anExchangeThatFailsHalfwayIsFinished)
{
    putContent(m_name, "old");
    const OdString away = m_folder.at("away");
    bool moved = false;
    {
        WinFileCalls calls;
        calls.onSetInformation = &refuseToRename;
        calls.onReplaceFile = [&](const wchar_t* replaced)
        {
            EXPECT_TRUE(::MoveFileExW(replaced, away.c_str(), 0));
            ::SetLastError(ERROR_UNABLE_TO_MOVE_REPLACEMENT_2);
            return FALSE;
        };
        calls.before = [&](WinFileCalls::Call call) { moved = moved || call == WinFileCalls::moveFile; };
        EXPECT_EQ(write(m_name), "was written");
    }
    EXPECT_TRUE(moved);
    EXPECT_EQ(contentOf(m_name), "brand new");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", "away"}));
}

TEST_F(WinExchange, whatCannotBeFinishedKeepsTheNewContent)
{
    putContent(m_name, "old");
    const OdString away = m_folder.at("away");
    {
        WinFileCalls calls;
        calls.onSetInformation = &refuseToRename;
        calls.onReplaceFile = [&](const wchar_t* replaced)
        {
            EXPECT_TRUE(::MoveFileExW(replaced, away.c_str(), 0));
            ::SetLastError(ERROR_UNABLE_TO_MOVE_REPLACEMENT_2);
            return FALSE;
        };
        calls.before = [&](WinFileCalls::Call call)
        {
            if (call == WinFileCalls::moveFile)
                calls.failAt = calls.made;
        };
        EXPECT_NE(write(m_name), "was written");
    }
    const Names names = namesIn(m_folder.path());
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0], "away");
    EXPECT_EQ(contentOf(m_folder.at(names[1])), "brand new");
    EXPECT_EQ(contentOf(away), "old");
}

TEST_F(WinExchange, attributesAndTheTimeOfMakingAreKept)
{
    putContent(m_name, "old");
    ASSERT_TRUE(::SetFileAttributesW(m_name.c_str(), FILE_ATTRIBUTE_HIDDEN));
    const DWORD before = ::GetFileAttributesW(m_name.c_str());
    WinFileCalls calls;
    FILE_BASIC_INFO given = {};
    calls.onSetInformation = [&](HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information, DWORD size)
    {
        if (which == FileBasicInfo)
            std::memcpy(&given, information, sizeof given);
        return ::SetFileInformationByHandle(file, which, information, size);
    };
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    ASSERT_TRUE(::GetFileAttributesExW(m_name.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(given.CreationTime.LowPart, data.ftCreationTime.dwLowDateTime);
    EXPECT_EQ(static_cast<DWORD>(given.CreationTime.HighPart), data.ftCreationTime.dwHighDateTime);
    EXPECT_EQ(given.LastWriteTime.QuadPart, 0);
    EXPECT_EQ(::GetFileAttributesW(m_name.c_str()) & FILE_ATTRIBUTE_HIDDEN, before & FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(WinExchange, whoMayUseTheFileIsKept)
{
    const auto accessListOf = [this]
    {
        DWORD needed = 0;
        ::GetFileSecurityW(m_name.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
        std::string list(needed, '\0');
        EXPECT_TRUE(::GetFileSecurityW(m_name.c_str(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed));
        return list;
    };
    putContent(m_name, "old");
    const std::string usual = accessListOf();
    // Full control for the owner and nothing for anybody else.
    EXPLICIT_ACCESSW access = {};
    wchar_t user[] = L"CURRENT_USER";
    ::BuildExplicitAccessWithNameW(&access, user, GENERIC_ALL, SET_ACCESS, NO_INHERITANCE);
    PACL list = nullptr;
    ASSERT_EQ(::SetEntriesInAclW(1, &access, nullptr, &list), DWORD{ERROR_SUCCESS});
    SECURITY_DESCRIPTOR descriptor = {};
    ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    ASSERT_TRUE(::SetFileSecurityW(m_name.c_str(), DACL_SECURITY_INFORMATION, &descriptor));
    ::LocalFree(list);
    const std::string own = accessListOf();
    ASSERT_NE(own, usual);

    EXPECT_EQ(write(m_name), "was written");
    EXPECT_EQ(accessListOf(), own);
}
