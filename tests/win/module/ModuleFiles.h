#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <filesystem>

// The folder of this program, where the module is built to.
std::filesystem::path programFolder();

// The module as it is built, with its language libraries beside it.
std::filesystem::path builtModule();

OdString textOf(const std::filesystem::path& path);

// A folder with a copy of the module, whose language libraries the test chooses. It is deleted at the end.
class ModuleCopy
{
public:
    ModuleCopy();
    ~ModuleCopy();
    ModuleCopy(const ModuleCopy&) = delete;
    ModuleCopy& operator=(const ModuleCopy&) = delete;

    const std::filesystem::path& folder() const noexcept { return m_folder; }
    std::filesystem::path file() const { return m_folder / L"GarmPC3Editor.grx"; }

    // Puts a library of the program's folder beside the module, as its language library of that tag.
    void putLanguage(const wchar_t* tag, const std::filesystem::path& library) const;

private:
    std::filesystem::path m_folder;
};
