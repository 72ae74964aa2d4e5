#pragma once

#include "files/windows/FileIo.h"

namespace pia
{
// The absolute form of a path, which may be longer than the classic limit. Empty for what is no path.
std::wstring absolutePath(const wchar_t* path);

// The file that a write goes to.
struct Target
{
    std::wstring path; // absolute, links followed
    bool exists = false;
    bool hasOtherNames = false; // hard links

    std::wstring folder() const { return path.substr(0, nameStart(path)); }
};

// Null after success, otherwise the reason why nothing must be written there.
const char* findTarget(const wchar_t* path, Target& target);
} // namespace pia
