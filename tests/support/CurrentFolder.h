#pragma once

#include "kernel/OdString.h"

#include <filesystem>

// Changes the current folder for a scope.
class CurrentFolder
{
public:
    explicit CurrentFolder(const OdString& folder) : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(std::filesystem::path(folder.view()));
    }
    ~CurrentFolder() { std::filesystem::current_path(m_before); }

    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path m_before;
};
