#pragma once

#include "files/native/File.h"

#include <sys/types.h>

#include <string>

namespace files
{
// A new file beside its target, which is removed again unless it is renamed. It is locked while it is being written,
// which distinguishes it from a file left behind.
class TempFile
{
public:
    // If none can be created, file() is empty and errno says why.
    TempFile(int folder, mode_t mode) : m_folder(folder) { create(mode); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    // Call this before the file is renamed: some file systems report lost data only on closing.
    File& file() noexcept { return m_file; }

    // Renames the file in one step, replacing a file with that name.
    bool takePlaceOf(const char* target) noexcept;

    // Renames the file but never replaces another one: then errno is EEXIST.
    bool takeFreeName(const char* name) noexcept;

private:
    void create(mode_t mode);

    int m_folder;
    std::string m_name; // empty if there is nothing to remove
    File m_file;
};

// Removes the temporary files of writers that no longer run: those that are old compared with a file just created in
// that folder, and that are not locked. What cannot be removed stays, and so does everything on a file system without
// locks.
void removeStaleFiles(int folder, int justMade) noexcept;
} // namespace files
