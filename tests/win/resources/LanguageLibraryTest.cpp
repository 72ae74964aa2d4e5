#include "tests/win/resources/LanguageLibrary.h"

#include "mfc/AfxRes.h"
#include "resources/Resource.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace
{
class LanguageLibrary : public ::testing::TestWithParam<const wchar_t*>
{
};

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLibrary, ::testing::ValuesIn(languageTags));

TEST_P(LanguageLibrary, holdsEveryString)
{
    const LibraryHandle library = loadLanguage(GetParam());
    ASSERT_TRUE(library) << "error " << ::GetLastError();
    EXPECT_EQ(stringOf(library.get(), IDS_COMMAND_PC3EDIT), L"PC3EDIT");
    EXPECT_EQ(stringOf(library.get(), IDS_COMMAND_PC3GETDEVMODE), L"PC3GETDEVMODE");
    EXPECT_FALSE(stringOf(library.get(), IDS_SAVE_FAILED).empty());
}

// Otherwise the window library shows it in English.
TEST_P(LanguageLibrary, holdsTheWindowLibrarysMessage)
{
    static_assert(IDS_NO_NUMBER == AFX_IDP_PARSE_REAL);
    const LibraryHandle library = loadLanguage(GetParam());
    const std::map<std::wstring_view, std::wstring_view> messages = {
        {L"de", L"Bitte geben Sie eine Zahl ein."},
        {L"en", L"Please enter a number."},
        {L"ja", L"\u6570\u5024\u3092\u5165\u529B\u3057\u3066\u304F\u3060\u3055\u3044\u3002"}};
    EXPECT_EQ(stringOf(library.get(), AFX_IDP_PARSE_REAL), messages.at(GetParam()));
}

TEST_P(LanguageLibrary, isGoneWhenFreed)
{
    const std::wstring path = libraryPath(GetParam());
    {
        const LibraryHandle library = loadLanguage(GetParam());
        EXPECT_NE(::GetModuleHandleW(path.c_str()), nullptr);
    }
    EXPECT_EQ(::GetModuleHandleW(path.c_str()), nullptr);
}

TEST_P(LanguageLibrary, saysWhatItIs)
{
    const std::wstring path = libraryPath(GetParam());
    DWORD ignored = 0;
    std::vector<BYTE> block(::GetFileVersionInfoSizeW(path.c_str(), &ignored));
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));

    void* value = nullptr;
    UINT size = 0;
    ASSERT_TRUE(::VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &value, &size));
    ASSERT_EQ(size, 4U);
    const WORD language = static_cast<const WORD*>(value)[0];
    const std::map<std::wstring_view, WORD> languages = {{L"de", 0x0407}, {L"en", 0x0409}, {L"ja", 0x0411}};
    EXPECT_EQ(language, languages.at(GetParam()));

    // The block of texts must be the one that the translation names, or nothing finds them.
    wchar_t name[64] = {};
    ::swprintf(name, 64, L"\\StringFileInfo\\%04x%04x\\OriginalFilename", language, static_cast<const WORD*>(value)[1]);
    ASSERT_TRUE(::VerQueryValueW(block.data(), name, &value, &size));
    EXPECT_STREQ(static_cast<const wchar_t*>(value), L"GarmPC3EditorRes.dll");
}

TEST(LanguageLibraryTexts, lettersBeyondAsciiArriveWhole)
{
    const LibraryHandle german = loadLanguage(L"de");
    ASSERT_TRUE(german);
    EXPECT_NE(stringOf(german.get(), IDS_SAVE_FAILED).find(L"Pr\u00FCfen"), std::wstring::npos);
    const LibraryHandle japanese = loadLanguage(L"ja");
    ASSERT_TRUE(japanese);
    EXPECT_EQ(stringOf(japanese.get(), IDS_MEDIA), L"\u7528\u7D19");
}
} // namespace
