// Damaged or missing files in place of the language library.

#include "host/GmLanguage.h"
#include "kernel/OdEdCommandStack.h"
#include "tests/win/module/LoadedModule.h"
#include "tests/win/support/MessageBoxAnswerer.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace
{
std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void write(const std::filesystem::path& file, const std::string& content)
{
    std::ofstream(file, std::ios::binary) << content;
}

class DamagedLibrary : public ::testing::Test
{
protected:
    DamagedLibrary() { std::filesystem::create_directory(m_copy.folder() / L"en"); }
    ~DamagedLibrary() override
    {
        forgetCallbacksOfGoneModules();
        EXPECT_FALSE(LoadedModule::isInProcess());
        EXPECT_EQ(languageCallbackCount(), 0U);
    }

    std::filesystem::path library() const { return m_copy.folder() / L"en" / L"GarmPC3EditorRes.dll"; }

    // The module reports it once and is not loaded.
    void expectRefused() const
    {
        const MessageBoxAnswerer answerer;
        const auto [object, whyNot] = GmModuleLoader::load(textOf(m_copy.file()));
        EXPECT_EQ(object, nullptr);
        EXPECT_TRUE(whyNot.view().ends_with(L"it refused to start; its language library may be missing.")) << whyNot;
        ASSERT_EQ(answerer.boxes().size(), 1U);
        EXPECT_EQ(answerer.boxes()[0].caption, L"Garmont");
        EXPECT_EQ(answerer.boxes()[0].text,
                  L"Can't load GarmPC3EditorRes.dll\nPC3 Editor commands will be unavailable.");
        EXPECT_FALSE(LoadedModule::isInProcess());
        EXPECT_TRUE(odedRegCmds()->commands().empty());
    }

    // The module is loaded, with the names that its commands have without a library.
    void expectFallbackNames() const
    {
        const LoadedModule module(m_copy.file());
        const OdEdCommandPtr edit = odedRegCmds()->lookupGlobal(L"_PC3EDIT");
        const OdEdCommandPtr getDevMode = odedRegCmds()->lookupGlobal(L"_PC3GETDEVMODE");
        ASSERT_TRUE(edit && getDevMode);
        EXPECT_EQ(edit->localName(), L"PC3EDIT");
        EXPECT_EQ(getDevMode->localName(), L"PC3GETDEVMODE");
    }

    const ModuleCopy m_copy;
    const std::string m_whole = contentOf(programFolder() / L"en" / L"GarmPC3EditorRes.dll");
};

TEST_F(DamagedLibrary, fileThatIsNoLibraryCountsAsNone)
{
    for (const std::string& content : {std::string(), std::string("M"), std::string("MZ"), std::string("no library"),
                                       std::string(100'000, '\0'), "MZ" + std::string(100'000, '\xff')})
    {
        SCOPED_TRACE(content.substr(0, 10));
        write(library(), content);
        expectRefused();
    }
}

TEST_F(DamagedLibrary, aFolderInItsPlaceCountsAsNone)
{
    std::filesystem::create_directory(library());
    expectRefused();
}

TEST_F(DamagedLibrary, libraryThatEndsTooEarlyCountsAsNone)
{
    ASSERT_GT(m_whole.size(), 10'000U);
    // Headers, tables and data each end somewhere in here.
    for (std::size_t length = 64; length < m_whole.size(); length += length < 2048 ? 64 : m_whole.size() / 16)
    {
        SCOPED_TRACE(length);
        write(library(), m_whole.substr(0, length));
        expectRefused();
    }
}

TEST_F(DamagedLibrary, libraryOfAnotherModuleGivesFallbackNames)
{
    // One with other resources, one with none at all, and the module itself.
    for (const std::filesystem::path& other : {programFolder() / L"module_no_strings.dll",
                                               programFolder() / L"module_language_fixture_1.dll", builtModule()})
    {
        SCOPED_TRACE(other.string());
        std::filesystem::copy_file(other, library(), std::filesystem::copy_options::overwrite_existing);
        expectFallbackNames();
    }
}

TEST_F(DamagedLibrary, switchToDamagedLibraryKeepsOldOne)
{
    write(library(), m_whole);
    std::filesystem::create_directory(m_copy.folder() / L"de");
    write(m_copy.folder() / L"de" / L"GarmPC3EditorRes.dll", "no library");
    const LoadedModule module(m_copy.file());
    EXPECT_FALSE(setUiLanguage(L"de"));
    EXPECT_EQ(uiLanguage().text(), L"en");
    const auto get = module.find<HINSTANCE (*)()>("_ZN16GarmPC3EditorApp16resourceInstanceEv");
    wchar_t text[64] = {};
    EXPECT_GT(::LoadStringW(get(), 201, text, 64), 0) << "the English library is gone";
}
} // namespace
