// A file with a hard link is rewritten in place.

#include "FileCalls.h"
#include "LinkedFileTest.h"
#include "files/native/File.h"
#include "files/native/Lock.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace
{
class Rewrite : public LinkedFileTest
{
protected:
    files::File open(int flags) const { return files::File(::open(odToUtf8(m_name).c_str(), flags)); }

    FileCallsReset m_reset;
};
} // namespace

TEST_F(Rewrite, aHardLinkIsPreserved)
{
    ASSERT_EQ(::chmod(odToUtf8(m_name).c_str(), 0640), 0);
    for (const std::string bytes : {"new", "and longer than before", ""})
    {
        EXPECT_EQ(write(bytes), "was written");
        EXPECT_EQ(contentOf(m_name), bytes);
        EXPECT_EQ(contentOf(m_other), bytes);
        EXPECT_TRUE(std::filesystem::equivalent(pathOf(m_name), pathOf(m_other)));
        EXPECT_EQ(names(), (Names{"A4.pc3", "other-name"}));
    }
    struct stat status = {};
    EXPECT_EQ(::stat(odToUtf8(m_name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(Rewrite, anyFailureLeavesTheOldOrNewContent)
{
    const int refused = failEachCall(
        m_name, EIO, [&] { makeFile(); }, [&](const char* reason, int n) { expectOldOrNew(!reason, n); });
    // Temporary file, five pieces, flush, close; hard link; five pieces, truncation, flush.
    EXPECT_EQ(refused, 1 + 5 + 1 + 1 + 1 + 5 + 1 + 1);
}

TEST_F(Rewrite, aFullDiskLeavesTheOldContent)
{
    // The first flush is of the copy, the second of the folder, the third of the file itself.
    FileCalls::now().fail(FileCall::fsync, ENOSPC, 3, 3);
    EXPECT_EQ(write(), "there is not enough room on the disk");
    EXPECT_EQ(contentOf(m_name), "old content");
    EXPECT_EQ(names(), (Names{"A4.pc3", "other-name"}));
}

TEST_F(Rewrite, aCopyStaysIfRestoringFails)
{
    FileCalls::now().fail(FileCall::fsync, EIO, 3);
    EXPECT_EQ(write("brand new"), "the file is damaged; its new content is in the file of the same name and \".new\"");
    EXPECT_EQ(contentOf(m_spare), "brand new");
}

TEST_F(Rewrite, aCopyOfAnotherSaveIsNotOverwritten)
{
    putContent(m_spare, "the only copy");
    EXPECT_EQ(write(), "a file with the same name and \".new\" is in the way");
    EXPECT_GT(FileCalls::now().waits, 10);
    EXPECT_EQ(contentOf(m_spare), "the only copy");
    EXPECT_EQ(contentOf(m_name), "old content");
    EXPECT_EQ(names(), (Names{"A4.pc3", "A4.pc3.new", "other-name"}));
}

TEST_F(Rewrite, aWriterWaitsForAnotherWriter)
{
    putContent(m_spare, "of the other");
    FileCalls::now().onWait = [&]
    {
        if (FileCalls::now().waits == 3)
            std::filesystem::remove(pathOf(m_spare));
    };
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(FileCalls::now().waits, 3);
    EXPECT_EQ(contentOf(m_other), "new");
}

TEST_F(Rewrite, aWriterWaitsTwoSecondsForReaders)
{
    files::File reader = open(O_RDONLY);
    ASSERT_EQ(files::lockFile(reader.get(), F_RDLCK), files::Lock::held);
    EXPECT_EQ(write(), "another program is using the file");
    // 1, 2, 4, 8, 16 and then 32 milliseconds each.
    EXPECT_EQ(FileCalls::now().waits, 5 + 62);
    EXPECT_EQ(contentOf(m_name), "old content");
    EXPECT_EQ(names(), (Names{"A4.pc3", "other-name"}));

    FileCalls::now().onWait = [&] { reader.close(); };
    EXPECT_EQ(write(), "was written");
}

TEST_F(Rewrite, aReaderWaitsTwoSecondsForAWriter)
{
    files::File writer = open(O_RDWR);
    ASSERT_EQ(files::lockFile(writer.get(), F_WRLCK), files::Lock::held);
    EXPECT_EQ(read(), "another program is using the file");
    EXPECT_EQ(FileCalls::now().waits, 5 + 62);

    FileCalls::now().onWait = [&] { writer.close(); };
    EXPECT_EQ(read(), "old content");
}

TEST_F(Rewrite, readersDoNotBlockEachOther)
{
    files::File reader = open(O_RDONLY);
    ASSERT_EQ(files::lockFile(reader.get(), F_RDLCK), files::Lock::held);
    EXPECT_EQ(read(), "old content");
    EXPECT_EQ(FileCalls::now().waits, 0);
}
