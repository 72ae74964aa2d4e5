#pragma once

#include "tests/unit/files/SavedFileTest.h"

// A file with a hard link, which must therefore be rewritten in place.
class LinkedFileTest : public SavedFileTest
{
protected:
    LinkedFileTest() { makeFile(); }

    // Restores the folder: the file with its old content, and the link.
    void makeFile()
    {
        for (const std::string& name : names())
            std::filesystem::remove(pathOf(m_folder.at(name)));
        putContent(m_name, "old content");
        std::filesystem::create_hard_link(pathOf(m_name), pathOf(m_other));
    }

    // Checks the folder after a write in which the n-th call failed.
    void expectOldOrNew(bool done, int n) const
    {
        EXPECT_EQ(contentOf(m_name), done ? "brand new" : "old content") << n;
        EXPECT_EQ(contentOf(m_other), done ? "brand new" : "old content") << n;
        const Names found = names();
        // At most a copy that could not be removed is left.
        EXPECT_LE(found.size(), 3U) << n;
        if (found.size() == 3U)
        {
            EXPECT_EQ(contentOf(m_folder.at(found[1])), "brand new") << found[1];
            EXPECT_TRUE(done);
        }
    }

    const OdString m_other = m_folder.at("other-name");
    const OdString m_spare = m_folder.at("A4.pc3.new");
};
