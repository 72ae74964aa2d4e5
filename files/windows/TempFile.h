#pragma once

#include "files/windows/File.h"
#include "files/windows/Target.h"

#include <string>

namespace files
{
// A new file beside its target, removed again unless it got another name. No other program can write or remove it as
// long as it is open, and it is locked, which tells it from a file left behind also where another Wine server, or none,
// looks at it.
class TempFile
{
public:
    // When none can be made, file() is empty and the last error tells why.
    explicit TempFile(const Target& target);
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    // To be closed before the file gets its name, so that every program can open it under that name at once.
    File& file() noexcept { return m_file; }

    // Lets the same people use it as use the target; once its bytes are written and it is closed. False when that
    // cannot be done: then the target has to stay the file it is.
    bool takeOverRights(const Target& target);

    // In one step, in the place of a file that has the name. Null after success, otherwise the reason.
    const char* takePlaceOf(const Target& target);

    // Never in the place of another file: then the last error is ERROR_ALREADY_EXISTS.
    bool takeFreeName(const std::wstring& path) noexcept;

private:
    void takeOverProperties(const std::wstring& target);
    bool exchangeOpen(const Target& target);

    std::wstring m_path; // empty when there is nothing to remove
    File m_file;
    bool m_private = false; // made by Wine's tools
};

// Removes the temporary files of writers that are no more: those that are old beside a file just made in that folder
// and that no other program has open or locked. What cannot be removed stays. folder ends in a backslash.
void removeStaleFiles(const std::wstring& folder, const File& justMade);
} // namespace files
