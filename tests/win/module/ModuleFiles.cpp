#include "tests/win/module/ModuleFiles.h"

#include <string>

std::filesystem::path programFolder()
{
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

std::filesystem::path builtModule()
{
    return programFolder() / L"GarmPC3Editor.grx";
}

OdString textOf(const std::filesystem::path& path)
{
    return OdString(path.c_str());
}

ModuleCopy::ModuleCopy()
{
    static int count = 0;
    const std::wstring name =
        L"garm-module-" + std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
    m_folder = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directory(m_folder);
    std::filesystem::copy_file(builtModule(), file());
}

ModuleCopy::~ModuleCopy()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void ModuleCopy::putLanguage(const wchar_t* tag, const std::filesystem::path& library) const
{
    std::filesystem::create_directory(m_folder / tag);
    std::filesystem::copy_file(programFolder() / library, m_folder / tag / L"GarmPC3EditorRes.dll");
}
