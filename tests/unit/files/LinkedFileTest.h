#pragma once

#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/files/FolderTools.h"

#include <gtest/gtest.h>

// A file that has another name too, and so must stay the file it is.
class LinkedFileTest : public testing::Test
{
protected:
    LinkedFileTest() { makeFile(); }

    // The file as it was at the beginning, alone in its folder but for its other name.
    void makeFile()
    {
        for (const std::string& name : namesIn(m_folder.path()))
            std::filesystem::remove(pathOf(m_folder.at(name)));
        putContent(m_name, "old content");
        std::filesystem::create_hard_link(pathOf(m_name), pathOf(m_other));
    }

    std::string write(std::string_view bytes = "new") const
    {
        const char* reason = files::replaceFile(m_name.c_str(), bytes);
        return reason ? reason : "was written";
    }

    // After a write that failed or not, whatever failed in it.
    void expectOldOrNew(bool done, int n) const
    {
        EXPECT_EQ(contentOf(m_name), done ? "brand new" : "old content") << n;
        EXPECT_EQ(contentOf(m_other), done ? "brand new" : "old content") << n;
        const std::vector<std::string> names = namesIn(m_folder.path());
        // Only a copy that could not be removed may stay.
        EXPECT_LE(names.size(), 3U) << n;
        if (names.size() == 3U)
        {
            EXPECT_EQ(contentOf(m_folder.at(names[1])), "brand new") << names[1];
            EXPECT_TRUE(done);
        }
    }

    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
    const OdString m_other = m_folder.at("other-name");
    const OdString m_spare = m_folder.at("A4.pc3.new");
};
