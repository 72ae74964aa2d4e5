#include "tests/win/resources/LanguageLibrary.h"

std::filesystem::path libraryPath(const wchar_t* tag)
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path() / tag / L"GarmPC3EditorRes.dll";
}

LibraryHandle loadLanguage(const wchar_t* tag)
{
    return LibraryHandle(::LoadLibraryW(libraryPath(tag).c_str()));
}

std::wstring stringOf(HMODULE library, UINT id)
{
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(library, id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}
