// Reading and replacing files on a real disk.

#include "files/FileAccess.h"
#include "FolderTools.h"
#include "pia_tree/CPIAOutput.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/pia/TreeTools.h"

#include <gtest/gtest.h>

namespace
{
class FileAccess : public testing::Test
{
protected:
    // Writes a tree that is identified by its number.
    static bool write(const OdString& name, int number, const char** reason = nullptr)
    {
        CPBlock root(OD_T(""));
        addTo<CPNum>(root, OD_T("n"), number);
        CPIAOutput output;
        const bool done = output.write(root, name.c_str());
        EXPECT_EQ(done, std::string_view(output.reason()).empty());
        if (reason)
            *reason = output.reason();
        return done;
    }

    static std::string refusalToWrite(const OdString& name)
    {
        const char* reason = "";
        EXPECT_FALSE(write(name, 1, &reason));
        return reason;
    }

    // The number in the file; -1 if it cannot be read.
    static std::int32_t read(const OdString& name)
    {
        CPIAParser parser;
        return parser.read(name.c_str()) ? intOf(*parser.root(), OD_T("n")).value_or(-1) : -1;
    }

    static std::string refusalToRead(const OdString& name)
    {
        CPIAParser parser;
        EXPECT_FALSE(parser.read(name.c_str()));
        EXPECT_EQ(parser.root(), nullptr);
        EXPECT_EQ(parser.line(), 0U);
        return parser.reason();
    }

    Names names() const { return namesIn(m_folder.path()); }

    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
};
} // namespace

TEST_F(FileAccess, aFileIsCreatedAndReplaced)
{
    EXPECT_TRUE(write(m_name, 1));
    EXPECT_EQ(read(m_name), 1);
    EXPECT_TRUE(write(m_name, 2));
    EXPECT_EQ(read(m_name), 2);
    EXPECT_EQ(names(), Names{"A4.pc3"});
}

TEST_F(FileAccess, anEmptyRootCanBeWritten)
{
    const OdString name = m_folder.at("empty.pc3");
    EXPECT_TRUE(CPIAOutput().write(CPBlock(OD_T("")), name.c_str()));
    CPIAParser parser;
    EXPECT_TRUE(parser.read(name.c_str()));
    EXPECT_EQ(parser.root()->size(), 0U);
}

TEST_F(FileAccess, thePlainFormIsWrittenOnRequest)
{
    const OdString name = m_folder.at("plain.pc3");
    CPBlock root(OD_T(""));
    addTo<CPNum>(root, OD_T("n"), 3);
    EXPECT_TRUE(CPIAOutput().write(root, name.c_str(), pia::Form::plain));
    EXPECT_EQ(contentOf(name), plainFile("n=3\n"));
    EXPECT_EQ(read(name), 3);
}

TEST_F(FileAccess, anEmptyOrNullPathIsRefused)
{
    EXPECT_EQ(refusalToRead(OdString()), "that is not a valid file name");
    EXPECT_EQ(refusalToWrite(OdString()), "that is not a valid file name");
    CPIAParser parser;
    EXPECT_FALSE(parser.read(nullptr));
    EXPECT_FALSE(CPIAOutput().write(CPBlock(OD_T("")), nullptr));
}

TEST_F(FileAccess, aMissingFileCannotBeRead)
{
    EXPECT_EQ(refusalToRead(m_folder.at("missing.pc3")), "the file or its folder does not exist");
    EXPECT_EQ(refusalToRead(m_folder.at("missing/A4.pc3")), "the file or its folder does not exist");
}

TEST_F(FileAccess, aMissingFolderIsNotCreated)
{
    EXPECT_EQ(refusalToWrite(m_folder.at("missing/A4.pc3")), "the file or its folder does not exist");
    EXPECT_EQ(names(), Names{});
}

TEST_F(FileAccess, aFolderIsRefused)
{
    const OdString folder = m_folder.addFolder("folder.pc3");
    EXPECT_NE(refusalToRead(folder), "");
    EXPECT_EQ(refusalToWrite(folder), "that is a folder or a device, not a file");
    EXPECT_NE(refusalToWrite(folder + OD_T("/")), "");
    EXPECT_NE(refusalToWrite(m_folder.at("missing") + OD_T("/")), "");
    EXPECT_EQ(names(), Names{"folder.pc3"});
    EXPECT_EQ(namesIn(folder), Names{});
}

TEST_F(FileAccess, aReadOnlyFileIsRefused)
{
    namespace fs = std::filesystem;
    ASSERT_TRUE(write(m_name, 1));
    constexpr auto allWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(pathOf(m_name), allWrite, fs::perm_options::remove);
    EXPECT_EQ(refusalToWrite(m_name), "the file is read-only");
    EXPECT_EQ(read(m_name), 1);
    EXPECT_EQ(names(), Names{"A4.pc3"});
    fs::permissions(pathOf(m_name), allWrite, fs::perm_options::add);
    EXPECT_TRUE(write(m_name, 2));
}

TEST_F(FileAccess, aRefusedTreeLeavesTheDiskUntouched)
{
    CPIAOutput output;
    EXPECT_FALSE(output.write(CPBlock(OD_T("named")), m_name.c_str()));
    EXPECT_EQ(names(), Names{});
    ASSERT_TRUE(write(m_name, 1));
    const std::string before = contentOf(m_name);
    EXPECT_FALSE(output.write(CPBlock(OD_T("named")), m_name.c_str()));
    EXPECT_EQ(contentOf(m_name), before);
    EXPECT_EQ(names(), Names{"A4.pc3"});
}

TEST_F(FileAccess, aNameThatIsTooLongIsRefused)
{
    const OdString name = m_folder.at(std::string(300, 'x') + ".pc3");
    EXPECT_NE(refusalToWrite(name), "");
    EXPECT_NE(refusalToRead(name), "");
    EXPECT_EQ(names(), Names{});
}

TEST_F(FileAccess, aNameMayContainAnyCharacters)
{
    const OdString name = m_folder.at(u"Gr\u00F6\u00DFe \u7D19 \U0001F5A8.pc3");
    EXPECT_TRUE(write(name, 1));
    EXPECT_TRUE(write(name, 2));
    EXPECT_EQ(read(name), 2);
}

TEST_F(FileAccess, aTooLargeFileIsRefused)
{
    const OdString name = m_folder.at("large.pc3");
    putContent(name, plainFirstLine);
    std::filesystem::resize_file(pathOf(name), (std::uintmax_t{64} << 20) + 1);
    EXPECT_EQ(refusalToRead(name), "the file is too large");
}

TEST_F(FileAccess, anEmptyFileIsRefused)
{
    const OdString name = m_folder.at("empty.pc3");
    putContent(name, "");
    EXPECT_EQ(refusalToRead(name), "the file is not a plotter configuration");
}

TEST_F(FileAccess, onlyOldTemporaryFilesAreRemoved)
{
    putOldContent(m_folder.at("~gm0123456789abcdef.tmp"), "half a fi");
    putOldContent(m_folder.at("~gmfedcba9876543210.tmp"), "");
    // Recent: its writer may be running in another container or on another machine.
    putContent(m_folder.at("~gm00000000000000aa.tmp"), "being written");
    // Not our temporary files, however old.
    putOldContent(m_folder.at("~gm2147483632_0.tmp"), "another program's");
    putOldContent(m_folder.at("~gm0123456789abcdef.pc3"), "another program's");
    putOldContent(m_folder.at("A3.pc3.new"), "the only copy");

    EXPECT_TRUE(write(m_name, 1));
    EXPECT_EQ(names(), (Names{"A3.pc3.new", "A4.pc3", "~gm00000000000000aa.tmp", "~gm0123456789abcdef.pc3",
                              "~gm2147483632_0.tmp"}));
}

TEST_F(FileAccess, aFailedReadCreatesNoFile)
{
    EXPECT_EQ(read(m_name), -1);
    EXPECT_EQ(names(), Names{});
}
