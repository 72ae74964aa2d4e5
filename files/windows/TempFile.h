#pragma once

#include "files/windows/File.h"
#include "files/windows/Target.h"

#include <string>

namespace files
{
// A new file beside its target, which is removed again unless it is renamed. While it is open, no other program can
// write or delete it. It is also locked, which distinguishes it from a file left behind even for another Wine server,
// or for a program without Wine.
class TempFile
{
public:
    // If none can be created, file() is empty and the last error says why.
    explicit TempFile(const Target& target);
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    // Call this before the file is renamed, so that other programs can open it under its new name at once.
    File& file() noexcept { return m_file; }

    // Gives the file the target's permissions. Call this once its bytes are written and it is closed. False if that is
    // not possible: the target must then stay the file it is.
    bool takeOverRights(const Target& target);

    // Renames the file in one step, replacing a file with that name. Returns null on success, otherwise the reason.
    const char* takePlaceOf(const Target& target);

    // Renames the file but never replaces another one: then the last error is ERROR_ALREADY_EXISTS.
    bool takeFreeName(const std::wstring& path) noexcept;

private:
    void takeOverProperties(const std::wstring& target);
    bool exchangeOpen(const Target& target);

    std::wstring m_path; // empty if there is nothing to remove
    File m_file;
    bool m_private = false; // created by Wine's tools
};

// Removes the temporary files of writers that no longer run: those that are old compared with a file just created in
// that folder, and that no other program has open or locked. What cannot be removed stays. folder ends in a backslash.
void removeStaleFiles(const std::wstring& folder, const File& justMade);
} // namespace files
