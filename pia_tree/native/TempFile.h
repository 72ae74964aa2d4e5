#pragma once

#include "pia_tree/native/File.h"

#include <sys/types.h>

#include <string>

namespace pia
{
// A new file beside its target, removed again unless it took the target's place. It is locked as long as it is ours:
// that, and not the number of its process, which another one may have by now, tells it from a file left behind.
class TempFile
{
public:
    // When none can be made, file() is empty and errno tells why.
    TempFile(int folder, mode_t mode) : m_folder(folder) { create(mode); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    // May be closed before the file takes the target's place.
    File& file() noexcept { return m_file; }

    bool takePlaceOf(const char* target) noexcept;

private:
    void create(mode_t mode);

    int m_folder;
    std::string m_name; // empty when there is nothing to remove
    File m_file;
    File m_lock; // the same open file, so that its lock outlives m_file
};

// Removes the temporary files of writers that are no more. What cannot be removed stays.
void removeStaleFiles(int folder) noexcept;
} // namespace pia
