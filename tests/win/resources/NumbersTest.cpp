// The numbers of the language libraries as literals: hosts and other libraries of the product use them, so they do not
// change, and a comparison with the list that the libraries are made from would not notice.
#include "tests/win/resources/OpenedDialog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{
using Bytes = std::vector<BYTE>;

struct NumberedControl
{
    int id;
    const wchar_t* kind;
};

constexpr const wchar_t* label = L"Static";
constexpr const wchar_t* edit = L"Edit";
constexpr const wchar_t* button = L"Button";
constexpr const wchar_t* list = L"ComboBox";
constexpr const wchar_t* slider = L"msctls_trackbar32";
constexpr const wchar_t* tree = L"SysTreeView32";

// In their order; labels that no code asks for have no number.
const std::map<UINT, std::vector<NumberedControl>> controlsOfDialogs = {
    {103,
     {{315, label},
      {513, label},
      {510, edit},
      {534, label},
      {520, label},
      {521, label},
      {522, label},
      {523, label},
      {2501, list}}},
    {105, {{508, tree}, {533, label}, {506, button}, {532, button}}},
    {106, {{900, edit}, {531, label}, {1, button}, {2, button}}},
    {107,
     {{516, label}, {502, edit}, {601, button}, {602, button}, {515, label}, {503, edit}, {509, label}, {504, edit}}},
    {108, {{517, button}}},
    {109, {{505, slider}, {525, slider}, {501, slider}}},
    {110, {{526, list}}},
    {111, {{603, button}, {604, button}}},
    {112, {{605, button}, {606, button}}},
    {10110,
     {{10117, list},
      {10118, list},
      {10130, button},
      {10116, edit},
      {10131, label},
      {10115, edit},
      {10132, label},
      {10123, button},
      {10124, button},
      {10121, label},
      {10122, label},
      {10119, button},
      {10120, button},
      {1, button},
      {2, button}}},
};

// The English texts, so that two that were exchanged are noticed too.
const std::map<UINT, std::wstring> englishStrings = {
    {102, L"%s - Plotter configuration"},
    {103, L"%s (not installed)"},
    {201, L"The plotter configuration could not be saved.\n\nCheck that the folder exists, that the file is not "
          L"write-protected, and that there is room on the disk."},
    {202, L"Not collated"},
    {203, L"Collated"},
    {204, L".pc3 will be added to the name."},
    {206, L"Plotter configurations (*.pc3)|*.pc3|All files (*.*)|*.*||"},
    {208, L"General"},
    {209, L"System printer driver"},
    {210, L"%s %s"},
    {211, L"Version: "},
    {213, L"Port: "},
    {214, L"Autospool"},
    {215, L"Plot to file"},
    {216, L"Device and document settings"},
    {217, L"Media"},
    {218, L"Media destination"},
    {219, L"Source and size"},
    {220, L"Graphics"},
    {221, L"Collating"},
    {222, L"Vector graphics"},
    {223, L"Raster graphics"},
    {224, L"TrueType text"},
    {225, L"Custom properties"},
    {227, L"<Size: %s>"},
    {228, L"Merge control"},
    {230, L"<Colors: %s>"},
    {231, L"%d, depth %d"},
    {232, L"<Resolution: %s>"},
    {233, L"<Dithering: %s>"},
    {234, L"<Preference: %d>"},
    {235, L"<Raster images: %d>"},
    {236, L"<OLE objects: %d>"},
    {237, L"As text"},
    {238, L"As graphics"},
    {239, L"Lines overwrite"},
    {240, L"Lines merge"},
    {241, L"Reset the device and document settings to the driver's defaults?"},
    {242, L"Too long to be edited here: only the beginning is shown."},
    {3000, L"PC3EDIT"},
    {3002, L"PC3GETDEVMODE"},
    {10125, L"72 dpi"},
    {10126, L"150 dpi"},
    {10127, L"300 dpi"},
    {10128, L"600 dpi"},
    {10129, L"1200 dpi"},
    {10133, L"At most %s mm"},
    {10134, L"At most %s inches"},
    {10135, L"Too long. %s"},
    {61713, L"Please enter a number."},
};

const std::map<UINT, const char*> icons = {
    {301, "system-printer"},  {302, "media"},           {303, "custom-properties"}, {304, "graphics"},
    {305, "file-printer"},    {306, "source-size"},     {307, "media-destination"}, {308, "checked"},
    {309, "vector-graphics"}, {310, "raster-graphics"}, {311, "collating"},         {312, "truetype"},
    {313, "merge-control"},   {2502, "help"},
};

const std::map<UINT, const char*> bitmaps = {{10111, "portrait"}, {10114, "landscape"}};

Bytes pictureFile(const char* folder, const std::string& name)
{
    std::ifstream file(std::filesystem::path(GARM_PICTURES) / folder / name, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

Bytes resource(HMODULE library, UINT id, LPCWSTR kind)
{
    const HRSRC found = ::FindResourceW(library, MAKEINTRESOURCEW(id), kind);
    const HGLOBAL loaded = found ? ::LoadResource(library, found) : nullptr;
    const auto* bytes = static_cast<const BYTE*>(loaded ? ::LockResource(loaded) : nullptr);
    return bytes ? Bytes(bytes, bytes + ::SizeofResource(library, found)) : Bytes();
}

std::set<UINT> numbers(HMODULE library, LPCWSTR kind)
{
    std::set<UINT> found;
    ::EnumResourceNamesW(
        library, kind,
        [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR into) -> BOOL
        {
            EXPECT_TRUE(IS_INTRESOURCE(name));
            reinterpret_cast<std::set<UINT>*>(into)->insert(static_cast<UINT>(reinterpret_cast<UINT_PTR>(name)));
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&found));
    return found;
}

template <class Value>
std::set<UINT> keys(const std::map<UINT, Value>& table)
{
    std::set<UINT> found;
    for (const auto& entry : table)
        found.insert(entry.first);
    return found;
}

WORD wordAt(const Bytes& bytes, std::size_t at)
{
    return static_cast<WORD>(bytes.at(at) | bytes.at(at + 1) << 8);
}

DWORD dwordAt(const Bytes& bytes, std::size_t at)
{
    return wordAt(bytes, at) | static_cast<DWORD>(wordAt(bytes, at + 2)) << 16;
}

// Of a file and of a library's group: 6 bytes, then an entry for each size. An entry ends in the place of the picture
// (4 bytes) or its number (2 bytes).
std::vector<Bytes> imagesInFile(const Bytes& file)
{
    std::vector<Bytes> images;
    for (std::size_t i = 0; i < wordAt(file, 4); ++i)
    {
        const std::size_t entry = 6 + 16 * i;
        const auto begin = file.begin() + static_cast<std::ptrdiff_t>(dwordAt(file, entry + 12));
        images.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(dwordAt(file, entry + 8)));
    }
    return images;
}

std::vector<Bytes> imagesInLibrary(HMODULE library, UINT id)
{
    const Bytes group = resource(library, id, RT_GROUP_ICON);
    std::vector<Bytes> images;
    if (!group.empty())
        for (std::size_t i = 0; i < wordAt(group, 4); ++i)
            images.push_back(resource(library, wordAt(group, 6 + 14 * i + 12), RT_ICON));
    return images;
}

class Numbers : public ::testing::TestWithParam<const wchar_t*>
{
protected:
    Numbers() : m_library(loadLanguage(GetParam())) {}
    void SetUp() override { ASSERT_TRUE(m_library); }

    LibraryHandle m_library;
};

INSTANTIATE_TEST_SUITE_P(Languages, Numbers, ::testing::ValuesIn(languageTags));

TEST_P(Numbers, ofTheDialogsAndTheirControls)
{
    EXPECT_EQ(numbers(m_library.get(), RT_DIALOG), keys(controlsOfDialogs));
    for (const auto& [id, expected] : controlsOfDialogs)
    {
        const OpenedDialog dialog(m_library.get(), id);
        std::vector<std::pair<int, std::wstring>> found;
        for (const HWND control : dialog.controls())
            if (const int number = ::GetDlgCtrlID(control); number != -1 && number != 0xFFFF)
                found.emplace_back(number, classOf(control));
        std::vector<std::pair<int, std::wstring>> wanted;
        for (const NumberedControl& control : expected)
            wanted.emplace_back(control.id, control.kind);
        EXPECT_EQ(found, wanted) << id;
    }
}

TEST_P(Numbers, ofTheStrings)
{
    std::set<UINT> found;
    // Sixteen strings are one resource.
    for (const UINT block : numbers(m_library.get(), RT_STRING))
        for (UINT id = (block - 1) * 16; id < block * 16; ++id)
            if (!stringOf(m_library.get(), id).empty())
                found.insert(id);
    EXPECT_EQ(found, keys(englishStrings));
}

TEST_P(Numbers, ofTheIcons)
{
    EXPECT_EQ(numbers(m_library.get(), RT_GROUP_ICON), keys(icons));
    for (const auto& [id, name] : icons)
    {
        const Bytes file = pictureFile("icons", std::string(name) + ".ico");
        ASSERT_GT(file.size(), 6U) << name;
        EXPECT_EQ(imagesInLibrary(m_library.get(), id), imagesInFile(file)) << id << " is not " << name;
    }
}

TEST_P(Numbers, ofTheBitmaps)
{
    EXPECT_EQ(numbers(m_library.get(), RT_BITMAP), keys(bitmaps));
    for (const auto& [id, name] : bitmaps)
    {
        // Without the header that only a file has.
        const Bytes file = pictureFile("bitmaps", std::string(name) + ".bmp");
        ASSERT_GT(file.size(), sizeof(BITMAPFILEHEADER)) << name;
        EXPECT_EQ(resource(m_library.get(), id, RT_BITMAP), Bytes(file.begin() + sizeof(BITMAPFILEHEADER), file.end()))
            << id << " is not " << name;
    }
}

TEST(EnglishStrings, standUnderTheirNumbers)
{
    const LibraryHandle english = loadLanguage(L"en");
    ASSERT_TRUE(english);
    for (const auto& [id, text] : englishStrings)
        EXPECT_EQ(stringOf(english.get(), id), text) << id;
}
} // namespace
