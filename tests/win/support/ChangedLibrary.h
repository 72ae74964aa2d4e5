#pragma once

#include "win32/Win32.h"

#include <filesystem>
#include <span>
#include <vector>

// A copy of a resource library from which a test removes resources; the file is deleted at the end. The bytes are
// changed by hand, because UpdateResourceW does not remove anything under Wine.
class ChangedLibrary
{
public:
    explicit ChangedLibrary(const std::filesystem::path& original);
    ~ChangedLibrary();
    ChangedLibrary(const ChangedLibrary&) = delete;
    ChangedLibrary& operator=(const ChangedLibrary&) = delete;

    // The rest before load() only; each throws when there is nothing to take away.

    void remove(const wchar_t* type, UINT id);
    void removeAll(const wchar_t* type);
    // One text of the string table.
    void removeString(UINT id);

    // The library as the host loads it: for its resources only.
    HINSTANCE load();

private:
    using Directory = IMAGE_RESOURCE_DIRECTORY;
    using Entry = IMAGE_RESOURCE_DIRECTORY_ENTRY;

    template <class Struct>
    Struct& at(std::size_t offset);
    std::size_t fileOffset(DWORD address);
    std::span<Entry> entries(std::size_t directory);
    Entry& find(std::size_t directory, UINT id);
    void removeEntry(std::size_t directory, UINT id);
    std::size_t namesOf(const wchar_t* type);

    std::filesystem::path m_file;
    std::vector<BYTE> m_bytes;
    std::size_t m_resources = 0; // where the root directory is in the bytes
    HINSTANCE m_library = nullptr;
};
