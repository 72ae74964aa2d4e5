#pragma once

#include "files/windows/FileIo.h"
#include "kernel/OdString.h"

namespace files
{
// The full path in the form without a length limit. Empty for an empty path.
std::wstring absolutePath(const OdString& path);

// The file that a save writes to.
struct Target
{
    std::wstring path; // absolute, with links resolved
    bool exists = false;
    bool hasOtherNames = false; // hard links

    std::wstring folder() const { return path.substr(0, nameStart(path)); }
};

// Null if the file may be written, otherwise the reason why not.
const char* findTarget(const wchar_t* path, Target& target);
} // namespace files
