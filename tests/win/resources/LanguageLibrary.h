#pragma once

#include "win32/windows/SystemHandles.h"

#include <filesystem>
#include <string>

// The language libraries beside the test program.

inline constexpr const wchar_t* languageTags[] = {L"de", L"en", L"ja"};

std::filesystem::path libraryPath(const wchar_t* tag);
LibraryHandle loadLanguage(const wchar_t* tag);

// Empty when there is none.
std::wstring stringOf(HMODULE library, UINT id);
