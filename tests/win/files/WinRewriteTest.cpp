// Files that must stay the file they are, because they have other names too, are rewritten in place.

#include "tests/unit/files/LinkedFileTest.h"
#include "tests/win/files/WinFileCalls.h"
#include "win32/windows/SystemHandles.h"

#include <windows.h>

namespace
{
using Names = std::vector<std::string>;

class WinRewrite : public LinkedFileTest
{
protected:
    KernelHandle openForReading() const
    {
        return KernelHandle(::CreateFileW(m_name.c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    }
};
} // namespace

TEST_F(WinRewrite, aFileWithAnotherNameKeepsIt)
{
    for (const std::string bytes : {"new", "and longer than before", ""})
    {
        EXPECT_EQ(write(bytes), "was written");
        EXPECT_EQ(contentOf(m_name), bytes);
        EXPECT_EQ(contentOf(m_other), bytes);
        EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", "other-name"}));
    }
}

TEST_F(WinRewrite, anyFailureLeavesOnlyTheOldContent)
{
    int refused = 0;
    for (int n = 1;; ++n)
    {
        makeFile();
        bool done = false;
        bool reached = false;
        {
            WinFileCalls calls;
            calls.failAt = n;
            done = write("brand new") == "was written";
            reached = calls.made >= n;
        }
        refused += done ? 0 : 1;
        expectOldOrNew(done, n);
        if (!reached)
            break;
    }
    // The look at the target, twice, the temporary file, its bytes, their flush, its close; its other name; the file
    // itself, its bytes, their flush.
    EXPECT_EQ(refused, 2 + 1 + 1 + 1 + 1 + 1 + 1 + 1 + 1);
}

TEST_F(WinRewrite, whatCannotBePutBackStaysBesideFile)
{
    WinFileCalls calls;
    int flushes = 0;
    calls.before = [&](WinFileCalls::Call call)
    {
        // The first flush is of the copy.
        if (call == WinFileCalls::flush && ++flushes >= 2)
            calls.failAt = calls.made;
    };
    EXPECT_EQ(write("brand new"), "the file is damaged; its new content is in the file of the same name and \".new\"");
    EXPECT_EQ(contentOf(m_spare), "brand new");
}

TEST_F(WinRewrite, copyOfABrokenSaveIsNotOverwritten)
{
    putContent(m_spare, "the only copy");
    WinFileCalls calls;
    EXPECT_EQ(write(), "a file with the same name and \".new\" is in the way");
    EXPECT_EQ(calls.waits, 5 + 62);
    EXPECT_EQ(contentOf(m_spare), "the only copy");
    EXPECT_EQ(contentOf(m_name), "old content");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", "A4.pc3.new", "other-name"}));
}

TEST_F(WinRewrite, writerWaitsTwoSecondsForReaders)
{
    KernelHandle reader = openForReading();
    ASSERT_TRUE(reader);
    {
        WinFileCalls calls;
        EXPECT_EQ(write(), "another program is using the file");
        EXPECT_EQ(calls.waits, 5 + 62);
    }
    EXPECT_EQ(contentOf(m_name), "old content");
    EXPECT_EQ(namesIn(m_folder.path()), (Names{"A4.pc3", "other-name"}));

    WinFileCalls calls;
    calls.onWait = [&]
    {
        if (calls.waits == 1)
            reader.reset();
    };
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(contentOf(m_other), "new");
}
