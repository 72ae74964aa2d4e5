#pragma once

#include "win32/Win32.h"

#include <filesystem>
#include <memory>
#include <string>

// The language libraries beside the test program.

inline constexpr const wchar_t* languageTags[] = {L"de", L"en", L"ja"};

struct FreeLibraryDeleter
{
    void operator()(HMODULE library) const { ::FreeLibrary(library); }
};
using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeLibraryDeleter>;

std::filesystem::path libraryPath(const wchar_t* tag);
Library loadLanguage(const wchar_t* tag);

// Empty when there is none.
std::wstring stringOf(HMODULE library, UINT id);
