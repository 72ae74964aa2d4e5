#include "host/GmLanguage.h"
#include "kernel/OdEdCommandStack.h"
#include "resources/Resource.h"
#include "tests/win/module/LoadedModule.h"
#include "tests/win/support/MessageBoxAnswerer.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
class ModuleLanguage : public ::testing::Test
{
protected:
    ~ModuleLanguage() override
    {
        setUiLanguage(L"en");
        EXPECT_EQ(languageCallbackCount(), 0U) << "the module is gone, its callback is not";
    }

    static HINSTANCE resourceInstance(const LoadedModule& module)
    {
        const auto get = module.find<HINSTANCE (*)()>("_ZN16GarmPC3EditorApp16resourceInstanceEv");
        EXPECT_NE(get, nullptr);
        return get ? get() : nullptr;
    }

    static std::wstring stringOf(const LoadedModule& module, UINT id)
    {
        wchar_t text[512] = {};
        ::LoadStringW(resourceInstance(module), id, text, 512);
        return text;
    }

    static bool isGerman(const LoadedModule& module)
    {
        return stringOf(module, IDS_SAVE_FAILED).rfind(L"Die Plotterkonfiguration", 0) == 0;
    }

    static bool isEnglish(const LoadedModule& module)
    {
        return stringOf(module, IDS_SAVE_FAILED).rfind(L"The plotter configuration", 0) == 0;
    }
};

TEST_F(ModuleLanguage, loadWithoutALanguageLibraryIsRefused)
{
    const ModuleCopy copy;
    const MessageBoxAnswerer answerer;
    const HMODULE library = ::LoadLibraryW(copy.file().c_str());
    const DWORD error = ::GetLastError();
    EXPECT_EQ(library, nullptr);
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_DLL_INIT_FAILED));
    ASSERT_EQ(answerer.boxes().size(), 1U);
    EXPECT_EQ(answerer.boxes()[0].caption, L"Garmont");
    EXPECT_EQ(answerer.boxes()[0].text, L"Can't load GarmPC3EditorRes.dll\nPC3 Editor commands will be unavailable.");
    EXPECT_FALSE(LoadedModule::isInProcess());
    EXPECT_FALSE(odedRegCmds()->lookup(L"PC3EDIT"));
    EXPECT_FALSE(odedRegCmds()->lookup(L"_PC3EDIT"));
    EXPECT_FALSE(odedRegCmds()->lookup(L"PC3GETDEVMODE"));
    EXPECT_FALSE(odedRegCmds()->lookup(L"_PC3GETDEVMODE"));
    forgetCallbacksOfGoneModules();
}

TEST_F(ModuleLanguage, moduleLoadsOnceItsLibraryIsThere)
{
    const ModuleCopy copy;
    {
        const MessageBoxAnswerer answerer;
        EXPECT_EQ(::LoadLibraryW(copy.file().c_str()), nullptr);
    }
    copy.putLanguage(L"en", L"en/GarmPC3EditorRes.dll");
    const LoadedModule module(copy.file());
    EXPECT_TRUE(odedRegCmds()->lookup(L"_PC3EDIT"));
}

TEST_F(ModuleLanguage, startsInTheLanguageOfTheHost)
{
    ASSERT_TRUE(setUiLanguage(L"de"));
    const LoadedModule module;
    EXPECT_TRUE(isGerman(module));
}

TEST_F(ModuleLanguage, aSwitchExchangesTheLibraryAndBack)
{
    const LoadedModule module;
    EXPECT_TRUE(isEnglish(module));
    EXPECT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(isGerman(module));
    EXPECT_TRUE(setUiLanguage(L"en"));
    EXPECT_TRUE(isEnglish(module));
}

TEST_F(ModuleLanguage, switchWithoutALibraryKeepsTheOldLanguage)
{
    const LoadedModule module;
    ASSERT_TRUE(setUiLanguage(L"de"));
    const HINSTANCE german = resourceInstance(module);
    EXPECT_FALSE(setUiLanguage(L"fr"));
    EXPECT_EQ(resourceInstance(module), german);
    EXPECT_TRUE(isGerman(module));
}

TEST_F(ModuleLanguage, aSwitchFreesTheOldLibrary)
{
    const ModuleCopy copy;
    copy.putLanguage(L"en", L"en/GarmPC3EditorRes.dll");
    copy.putLanguage(L"de", L"de/GarmPC3EditorRes.dll");
    const LoadedModule module(copy.file());
    ASSERT_TRUE(isEnglish(module));
    const HINSTANCE english = resourceInstance(module);
    ASSERT_TRUE(setUiLanguage(L"de"));
    // The handle of a library that is mapped as data has its lowest bits set; the rest is its address.
    const auto base = reinterpret_cast<const void*>(reinterpret_cast<ULONG_PTR>(english) & ~ULONG_PTR{3});
    MEMORY_BASIC_INFORMATION region = {};
    ASSERT_NE(::VirtualQuery(base, &region, sizeof region), 0U);
    EXPECT_EQ(region.State, static_cast<DWORD>(MEM_FREE));
}

TEST_F(ModuleLanguage, commandsKeepTheLocalNamesOfTheirRegistration)
{
    const ModuleCopy copy;
    copy.putLanguage(L"en", L"module_named_strings.dll");
    copy.putLanguage(L"de", L"de/GarmPC3EditorRes.dll");
    const LoadedModule module(copy.file());
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3EDIT")->localName(), L"EDITLOCAL");
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3GETDEVMODE")->localName(), L"GETLOCAL");
    ASSERT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(odedRegCmds()->lookupLocal(L"EDITLOCAL"));
}

TEST_F(ModuleLanguage, stringTableWithoutCommandNamesGivesFallbacks)
{
    const ModuleCopy copy;
    copy.putLanguage(L"en", L"module_no_strings.dll");
    const LoadedModule module(copy.file());
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3EDIT")->localName(), L"PC3EDIT");
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3GETDEVMODE")->localName(), L"PC3GETDEVMODE");
}

TEST_F(ModuleLanguage, anEmptyCommandNameCountsAsMissing)
{
    const ModuleCopy copy;
    copy.putLanguage(L"en", L"module_empty_strings.dll");
    const LoadedModule module(copy.file());
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3EDIT")->localName(), L"PC3EDIT");
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3GETDEVMODE")->localName(), L"PC3GETDEVMODE");
}
} // namespace
