// Replacing a file preserves mode, owner, group, access list and extended attributes.

#include "FileCalls.h"
#include "SavedFileTest.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>

namespace
{
constexpr auto accessList = "system.posix_acl_access";
constexpr auto defaultList = "system.posix_acl_default";

// An access list in the format of the system: version 2, then kind, rights and number of each entry, little-endian. The
// owner and user 1234 may read and write; the group and others have no access.
constexpr unsigned char listBytes[] = {
    2,    0, 0, 0,                         //
    1,    0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, // owner
    2,    0, 6, 0, 0xD2, 0x04, 0,    0,    // user 1234
    4,    0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, // group
    0x10, 0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, // mask
    0x20, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, // others
};

class Properties : public SavedFileTest
{
protected:
    std::string nativeName() const { return odToUtf8(m_name); }

    struct stat status() const
    {
        struct stat result = {};
        EXPECT_EQ(::stat(nativeName().c_str(), &result), 0);
        return result;
    }

    mode_t mode() const { return status().st_mode & 07777; }

    std::optional<std::string> attribute(const char* name) const
    {
        char value[256];
        const ssize_t size = ::getxattr(nativeName().c_str(), name, value, sizeof value);
        return size < 0 ? std::nullopt : std::optional(std::string(value, static_cast<std::size_t>(size)));
    }

    // False on a file system without extended attributes.
    bool setAttribute(const std::string& path, const char* name, std::string_view value)
    {
        const int done = ::setxattr(path.c_str(), name, value.data(), value.size(), 0);
        EXPECT_TRUE(done == 0 || errno == ENOTSUP) << std::strerror(errno);
        return done == 0;
    }

    static std::string_view list() { return {reinterpret_cast<const char*>(listBytes), sizeof listBytes}; }

    FileCallsReset m_reset;
};
} // namespace

TEST_F(Properties, everyModeIsPreserved)
{
    for (const mode_t wanted :
         {0200U, 0600U, 0602U, 0604U, 0606U, 0620U, 0622U, 0640U, 0644U, 0646U,  0660U,  0662U,  0664U,
          0666U, 0700U, 0711U, 0744U, 0750U, 0755U, 0770U, 0775U, 0777U, 01644U, 02755U, 04755U, 06777U})
    {
        putContent(m_name, "old");
        ASSERT_EQ(::chmod(nativeName().c_str(), wanted), 0);
        const ino_t before = status().st_ino;
        EXPECT_EQ(write(), "was written");
        EXPECT_EQ(mode(), wanted);
        EXPECT_NE(status().st_ino, before) << "the file was replaced, not rewritten";
        ASSERT_EQ(::unlink(nativeName().c_str()), 0);
    }
}

TEST_F(Properties, onlyTheOwnerMayUseTheTemporaryFile)
{
    putContent(m_name, "old");
    ASSERT_EQ(::chmod(nativeName().c_str(), 0666), 0);
    int looked = 0;
    FileCalls::now().before = [&](FileCall call)
    {
        if (call != FileCall::write && call != FileCall::fchmod)
            return;
        for (const std::string& name : names())
            if (name != "A4.pc3")
            {
                struct stat temporary = {};
                EXPECT_EQ(::stat(odToUtf8(m_folder.at(name)).c_str(), &temporary), 0);
                EXPECT_EQ(temporary.st_mode & 07777, 0600U);
                ++looked;
            }
    };
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(looked, 2);
}

TEST_F(Properties, attributesArePreserved)
{
    putContent(m_name, "old");
    const std::string binary("a\0b", 3);
    if (!setAttribute(nativeName(), "user.plotter", binary) || !setAttribute(nativeName(), "user.empty", ""))
        return; // not supported by this file system
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(attribute("user.plotter"), binary);
    EXPECT_EQ(attribute("user.empty"), "");
}

TEST_F(Properties, theAccessListIsPreserved)
{
    putContent(m_name, "old");
    if (!setAttribute(nativeName(), accessList, list()))
        return; // not supported by this file system
    const mode_t before = mode();
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(attribute(accessList), std::string(list()));
    EXPECT_EQ(mode(), before);
}

// A folder may have a default list for new files; an existing file without one must not get it.
TEST_F(Properties, theDefaultAccessListIsNotInherited)
{
    putContent(m_name, "old");
    ASSERT_EQ(::chmod(nativeName().c_str(), 0600), 0);
    if (!setAttribute(odToUtf8(m_folder.path()), defaultList, list()))
        return; // not supported by this file system
    const ino_t before = status().st_ino;
    EXPECT_EQ(write(), "was written");
    EXPECT_NE(status().st_ino, before) << "the file was replaced, not rewritten";
    EXPECT_EQ(attribute(accessList), std::nullopt);
    EXPECT_EQ(mode(), 0600U);
}

TEST_F(Properties, ownerAndGroupArePreserved)
{
    if (::geteuid() != 0)
        return; // tests/saving checks this with files of other users
    putContent(m_name, "old");
    ASSERT_EQ(::chown(nativeName().c_str(), 1234, 2345), 0);
    ASSERT_EQ(::chmod(nativeName().c_str(), 06755), 0);
    EXPECT_EQ(write(), "was written");
    EXPECT_EQ(status().st_uid, 1234U);
    EXPECT_EQ(status().st_gid, 2345U);
    EXPECT_EQ(mode(), 06755U);
}

// If a property cannot be copied to a new file, the old file is rewritten in place.
TEST_F(Properties, aFileWithUncopyablePropertiesIsRewritten)
{
    for (const FileCall refused : {FileCall::fchown, FileCall::fsetxattr, FileCall::fchmod})
    {
        std::filesystem::remove(pathOf(m_name));
        putContent(m_name, "old");
        if (refused == FileCall::fchown && (::geteuid() != 0 || ::chown(nativeName().c_str(), 1234, 2345) != 0))
            continue;
        if (refused == FileCall::fsetxattr && !setAttribute(nativeName(), "user.plotter", "value"))
            continue;
        const struct stat before = status();
        FileCalls::now() = {};
        FileCalls::now().fail(refused, EPERM);
        EXPECT_EQ(write("brand new"), "was written");
        EXPECT_EQ(contentOf(m_name), "brand new");
        EXPECT_EQ(status().st_ino, before.st_ino);
        EXPECT_EQ(status().st_uid, before.st_uid);
        EXPECT_EQ(status().st_mode, before.st_mode);
        EXPECT_EQ(names(), Names{"A4.pc3"});
    }
}
