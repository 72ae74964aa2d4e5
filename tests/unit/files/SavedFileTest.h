#pragma once

#include "files/FileAccess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/files/FolderTools.h"

#include <gtest/gtest.h>

// A folder for a configuration that is saved and read.
class SavedFileTest : public testing::Test
{
protected:
    static std::string write(const OdString& name, std::string_view bytes)
    {
        const char* reason = files::replaceFile(name.c_str(), bytes);
        return reason ? reason : "was written";
    }
    std::string write(std::string_view bytes = "new") const { return write(m_name, bytes); }

    // The content of the file, or why it cannot be read.
    static std::string read(const OdString& name)
    {
        files::ByteBuffer bytes;
        const char* reason = files::readFile(name.c_str(), bytes);
        return reason ? reason : std::string(bytes.view());
    }
    std::string read() const { return read(m_name); }

    Names names() const { return namesIn(m_folder.path()); }

    TemporaryFolder m_folder;
    const OdString m_name = m_folder.at("A4.pc3");
};
