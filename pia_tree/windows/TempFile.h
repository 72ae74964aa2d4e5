#pragma once

#include "pia_tree/windows/File.h"

#include <string>

namespace pia
{
// A new file beside its target, removed again unless it took the target's place. Nobody else can write or remove it as
// long as it is open, and it stays open until it has the target's name: that tells it from a file left behind.
class TempFile
{
public:
    // folder ends in a backslash. When no file can be made, file() is empty and the last error tells why.
    explicit TempFile(const std::wstring& folder) : m_file(create(folder, m_path)) {}
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile();

    const File& file() const noexcept { return m_file; }

    // Who may use the target, its attributes and when it was made, as far as that can be had.
    void takeOverProperties(const std::wstring& target);

    // After that the temporary file is closed. The last error tells why it failed.
    bool takePlaceOf(const std::wstring& target, bool targetExists);

private:
    static HANDLE create(const std::wstring& folder, std::wstring& path);
    bool exchangeClosed(const wchar_t* target) noexcept;

    std::wstring m_path; // empty when there is nothing to remove
    File m_file;
};

// Removes the temporary files of writers that are no more. What cannot be removed stays. folder ends in a backslash.
void removeStaleFiles(const std::wstring& folder);
} // namespace pia
