#pragma once

#include "kernel/OdString.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>

// A new folder that is removed with its content at the end.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::random_device random;
        do
            m_path = std::filesystem::temp_directory_path() / ("garm-host-" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_path));
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // The full path of a name in the folder.
    OdString at(const std::filesystem::path& name) const { return text(m_path / name); }
    OdString path() const { return text(m_path); }

    // Creates a file and its folders, and returns its full path.
    OdString addFile(const std::filesystem::path& name, std::string_view bytes = "content") const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return at(name);
    }

    OdString addFolder(const std::filesystem::path& name) const
    {
        std::filesystem::create_directories(m_path / name);
        return at(name);
    }

    // The names in the folder.
    std::set<std::string> names() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.insert(entry.path().filename().string());
        return names;
    }

    std::string bytesOf(const std::filesystem::path& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    static OdString text(const std::filesystem::path& path)
    {
        return OdString(path.lexically_normal().make_preferred().string<OdChar>());
    }

    std::filesystem::path m_path;
};
