#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "files/PathStart.h"
#include "host/CGarmPath.h"
#include "tests/support/TemporaryFolder.h"
#include "win32/Win32.h"
#include "win32/windows/SystemHandles.h"

#include <gtest/gtest.h>

namespace
{
// Folders of a name longer than the classic limit, in a temporary one.
class DeepFolder
{
public:
    DeepFolder() : m_path(m_folder.path())
    {
        for (int i = 0; i < 8; ++i)
        {
            m_path = CGarmPath::join(m_path, OdString(std::wstring(60, L'f')));
            EXPECT_TRUE(::CreateDirectoryW(extendedPath(m_path).c_str(), nullptr)) << m_path;
            m_made.push_back(m_path);
        }
    }
    ~DeepFolder()
    {
        ::DeleteFileW(extendedPath(file()).c_str());
        for (auto folder = m_made.rbegin(); folder != m_made.rend(); ++folder)
            ::RemoveDirectoryW(extendedPath(*folder).c_str());
    }

    DeepFolder(const DeepFolder&) = delete;
    DeepFolder& operator=(const DeepFolder&) = delete;

    const OdString& path() const noexcept { return m_path; }
    OdString file() const { return CGarmPath::join(m_path, L"x.pc3"); }

    void addFile() const
    {
        const KernelHandle handle(::CreateFileW(extendedPath(file()).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                                FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(handle);
    }

private:
    TemporaryFolder m_folder;
    OdString m_path;
    std::vector<OdString> m_made;
};

struct Pair
{
    const wchar_t* path;
    const wchar_t* full;
};
} // namespace

TEST(WinPath, fullPathStaysOnItsShareAndDrive)
{
    EXPECT_EQ(pathSeparator(), L'\\');
    for (const auto& [path, full] : {Pair{L"\\\\srv\\share\\u.pc3", L"\\\\srv\\share\\u.pc3"},
                                     Pair{L"//srv/share/u.pc3", L"\\\\srv\\share\\u.pc3"},
                                     Pair{L"\\\\srv\\share\\a\\..\\u.pc3", L"\\\\srv\\share\\u.pc3"},
                                     Pair{L"\\\\srv\\share\\.\\u.pc3", L"\\\\srv\\share\\u.pc3"},
                                     Pair{L"\\\\?\\C:\\plots\\u.pc3", L"\\\\?\\C:\\plots\\u.pc3"},
                                     Pair{L"\\\\?\\UNC\\srv\\share\\u.pc3", L"\\\\?\\UNC\\srv\\share\\u.pc3"},
                                     Pair{L"C:/plots/../u.pc3", L"C:\\u.pc3"}, Pair{L"C:\\..\\..\\u.pc3", L"C:\\u.pc3"},
                                     Pair{L"NUL", L"\\\\.\\NUL"}, Pair{L"\\\\.\\COM1", L"\\\\.\\COM1"}})
        EXPECT_EQ(fullPath(path), full) << OdString(path);
}

TEST(WinPath, whatIsRelativeGetsTheCurrentDrive)
{
    const OdString here = fullPath(L".");
    ASSERT_EQ(pathStart(here).kind, PathKind::drive);
    EXPECT_EQ(fullPath(L"\\plots\\u.pc3"), here.left(2) + L"\\plots\\u.pc3");
    EXPECT_EQ(fullPath(here.left(2) + L"u.pc3"), CGarmPath::join(here, L"u.pc3"));
}

TEST(WinPath, ofAnyLengthIsWhole)
{
    const OdString name(std::wstring(5000, L'n'));
    EXPECT_EQ(fullPath(L"C:\\" + name), L"C:\\" + name);
    EXPECT_EQ(fullPath(L"\\\\srv\\share\\" + name), L"\\\\srv\\share\\" + name);
}

TEST(WinPath, theNameOfADeviceIsNoFile)
{
    // The system itself reports the attributes of a file for them.
    ASSERT_NE(::GetFileAttributesW(L"NUL"), INVALID_FILE_ATTRIBUTES);
    for (const wchar_t* name : {L"NUL", L"nul.pc3", L"C:\\NUL", L"\\\\.\\NUL", L"COM1"})
    {
        EXPECT_FALSE(isRegularFile(name)) << OdString(name);
        EXPECT_FALSE(isFolder(name)) << OdString(name);
        EXPECT_EQ(filesIn(name), std::nullopt) << OdString(name);
    }
}

TEST(WinPath, checksKnowPathsOfAnyLength)
{
    const DeepFolder deep;
    EXPECT_GT(deep.path().getLength(), 480);
    EXPECT_TRUE(isFolder(deep.path()));
    EXPECT_EQ(filesIn(deep.path()), std::optional<std::vector<OdString>>(std::in_place));
    EXPECT_FALSE(isRegularFile(deep.file()));
    ASSERT_NO_FATAL_FAILURE(deep.addFile());
    EXPECT_TRUE(isRegularFile(deep.file()));
    EXPECT_TRUE(isRegularFile(L"\\\\?\\" + deep.file()));
    EXPECT_FALSE(isReadOnly(deep.file()));
    EXPECT_EQ(filesIn(deep.path()), (std::vector<OdString>{L"x.pc3"}));
}

TEST(WinPath, aShareThatIsNotThereHasNothing)
{
    EXPECT_FALSE(isRegularFile(L"\\\\no.such.server\\share\\u.pc3"));
    EXPECT_FALSE(isFolder(L"\\\\no.such.server\\share"));
    EXPECT_EQ(filesIn(L"\\\\no.such.server\\share"), std::nullopt);
}
