#include "tests/win/support/ChangedLibrary.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace
{
constexpr UINT stringsInABlock = 16;

UINT numberOf(const wchar_t* type)
{
    return LOWORD(reinterpret_cast<ULONG_PTR>(type));
}

std::vector<BYTE> bytesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
} // namespace

ChangedLibrary::ChangedLibrary(const std::filesystem::path& original) : m_bytes(bytesOf(original))
{
    static int count = 0;
    m_file = std::filesystem::temp_directory_path() /
             (L"garm-library-" + std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(++count) + L".dll");
    const auto& headers = at<IMAGE_NT_HEADERS64>(static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew));
    m_resources = fileOffset(headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_RESOURCE].VirtualAddress);
}

ChangedLibrary::~ChangedLibrary()
{
    if (m_library)
        ::FreeLibrary(m_library);
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

template <class Struct>
Struct& ChangedLibrary::at(std::size_t offset)
{
    if (offset + sizeof(Struct) > m_bytes.size())
        throw std::runtime_error("the library is shorter than it says");
    return *reinterpret_cast<Struct*>(&m_bytes[offset]);
}

std::size_t ChangedLibrary::fileOffset(DWORD address)
{
    const auto start = static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew);
    const auto& file = at<IMAGE_NT_HEADERS64>(start).FileHeader;
    const std::size_t sections = start + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + file.SizeOfOptionalHeader;
    for (WORD i = 0; i < file.NumberOfSections; ++i)
    {
        const auto& section = at<IMAGE_SECTION_HEADER>(sections + i * sizeof(IMAGE_SECTION_HEADER));
        if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData)
            return section.PointerToRawData + (address - section.VirtualAddress);
    }
    throw std::runtime_error("an address that is in no section");
}

std::span<ChangedLibrary::Entry> ChangedLibrary::entries(std::size_t directory)
{
    const auto& head = at<Directory>(directory);
    const std::size_t count = std::size_t{head.NumberOfNamedEntries} + head.NumberOfIdEntries;
    return {&at<Entry>(directory + sizeof(Directory)), count};
}

ChangedLibrary::Entry& ChangedLibrary::find(std::size_t directory, UINT id)
{
    for (Entry& entry : entries(directory))
        if (!entry.NameIsString && entry.Id == id)
            return entry;
    throw std::runtime_error("there is no resource " + std::to_string(id));
}

// The ones after it move up: they are searched as a sorted list.
void ChangedLibrary::removeEntry(std::size_t directory, UINT id)
{
    const std::span<Entry> all = entries(directory);
    Entry* const gone = &find(directory, id);
    std::copy(gone + 1, all.data() + all.size(), gone);
    --at<Directory>(directory).NumberOfIdEntries;
}

std::size_t ChangedLibrary::namesOf(const wchar_t* type)
{
    return m_resources + find(m_resources, numberOf(type)).OffsetToDirectory;
}

void ChangedLibrary::remove(const wchar_t* type, UINT id)
{
    removeEntry(namesOf(type), id);
}

void ChangedLibrary::removeAll(const wchar_t* type)
{
    removeEntry(m_resources, numberOf(type));
}

void ChangedLibrary::removeString(UINT id)
{
    const std::size_t languages = m_resources + find(namesOf(RT_STRING), id / stringsInABlock + 1).OffsetToDirectory;
    for (const Entry& language : entries(languages))
    {
        const auto& data = at<IMAGE_RESOURCE_DATA_ENTRY>(m_resources + language.OffsetToData);
        WORD* const block = &at<WORD>(fileOffset(data.OffsetToData));
        WORD* const end = block + data.Size / sizeof(WORD);
        // Each text is its length and its letters.
        WORD* text = block;
        for (UINT place = 0; place < id % stringsInABlock; ++place)
            text += 1 + *text;
        if (*text == 0)
            throw std::runtime_error("there is no string " + std::to_string(id));
        std::fill(std::copy(text + 1 + *text, end, text + 1), end, WORD{0});
        *text = 0;
    }
}

HINSTANCE ChangedLibrary::load()
{
    if (m_library)
        return m_library;
    {
        std::ofstream stream(m_file, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(m_bytes.data()), static_cast<std::streamsize>(m_bytes.size()));
    }
    m_library = ::LoadLibraryExW(m_file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    if (!m_library)
        throw std::runtime_error("the changed library cannot be loaded");
    return m_library;
}
