#pragma once

#include "files/windows/FileIo.h"
#include "kernel/OdString.h"

namespace files
{
// The full path in the form that has no limit of length. Empty for an empty path.
std::wstring absolutePath(const OdString& path);

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
} // namespace files
