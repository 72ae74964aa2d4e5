#pragma once

#include "files/native/File.h"

#include <sys/types.h>

#include <string>

namespace files
{
// A new file beside its target, removed again unless it got another name. It is locked as long as it is written, which
// tells it from a file left behind.
class TempFile
{
public:
    // When none can be made, file() is empty and errno tells why.
    TempFile(int folder, mode_t mode) : m_folder(folder) { create(mode); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    // To be closed before the file gets its name: some file systems notice only then that bytes did not arrive.
    File& file() noexcept { return m_file; }

    // In one step, in the place of a file that has the name.
    bool takePlaceOf(const char* target) noexcept;

    // Never in the place of another file: then errno is EEXIST.
    bool takeFreeName(const char* name) noexcept;

private:
    void create(mode_t mode);

    int m_folder;
    std::string m_name; // empty when there is nothing to remove
    File m_file;
};

// Removes the temporary files of writers that are no more: those that are old beside a file just made in that folder
// and that nobody has locked. What cannot be removed stays, and so does everything where there are no locks.
void removeStaleFiles(int folder, int justMade) noexcept;
} // namespace files
