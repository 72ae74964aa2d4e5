#pragma once

#include "kernel/OdString.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Access to files by the kind of name that the code under test takes.

using Names = std::vector<std::string>;

inline std::filesystem::path pathOf(const OdString& name)
{
    return std::filesystem::path(name.view());
}

inline std::string contentOf(const OdString& name)
{
    std::ifstream file(pathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void putContent(const OdString& name, std::string_view content)
{
    std::ofstream(pathOf(name), std::ios::binary) << content;
}

// Makes a file that was last written two hours ago.
inline void putOldContent(const OdString& name, std::string_view content)
{
    putContent(name, content);
    std::filesystem::last_write_time(pathOf(name),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
}

// The names in a folder, sorted.
inline Names namesIn(const OdString& folder)
{
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(pathOf(folder)))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}
