// The module comes more than once: the same file, under other paths, as a copy, under another name, again and again.

#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "tests/support/processcounts/ProcessCounts.h"
#include "tests/win/module/LoadedModule.h"
#include "tests/win/support/MessageBoxAnswerer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <string>

namespace
{
bool hasCommands()
{
    return odedRegCmds()->lookupGlobal(L"_PC3EDIT") && odedRegCmds()->lookupGlobal(L"_PC3GETDEVMODE");
}

// Runs one of the commands as the host does; the number of values it left.
std::size_t valuesOfQuery()
{
    const GarmInterfacesPtr interfaces = newGarmInterfaces();
    GmServicesManagerInterface& values = interfaces->document().servicesManager();
    values.set(L"deviceName", OdResBuf::newRb(kRtString, L"no such printer"));
    values.set(L"printerName", OdResBuf::newRb(kRtString, L""));
    EXPECT_TRUE(odedRegCmds()->executeCommand(L"_PC3GETDEVMODE", interfaces.get()));
    return values.names().size();
}
constexpr std::size_t allValues = 7; // the argument and six results

// A copy in its own folder, with its English and German libraries.
class WholeCopy : public ModuleCopy
{
public:
    WholeCopy()
    {
        putLanguage(L"en", L"en/GarmPC3EditorRes.dll");
        putLanguage(L"de", L"de/GarmPC3EditorRes.dll");
    }
};

class ModuleTwice : public ::testing::Test
{
protected:
    ~ModuleTwice() override
    {
        EXPECT_TRUE(odedRegCmds()->commands().empty());
        EXPECT_FALSE(LoadedModule::isInProcess());
        EXPECT_EQ(languageCallbackCount(), 0U);
        setUiLanguage(L"en");
    }
};

TEST_F(ModuleTwice, theSameFileIsRefusedUnderWhateverPath)
{
    const LoadedModule module;
    const std::wstring file = builtModule().native();
    std::wstring slashes = file;
    std::ranges::replace(slashes, L'\\', L'/');
    std::wstring capitals = file;
    std::ranges::transform(capitals, capitals.begin(), [](wchar_t c) { return c < 0x80 ? std::towupper(c) : c; });
    const std::wstring detour = (builtModule().parent_path() / L"en" / L".." / builtModule().filename()).native();
    for (const std::wstring& path : {file, slashes, capitals, detour})
    {
        const auto [object, whyNot] = GmModuleLoader::load(OdString(path.c_str()));
        EXPECT_EQ(object, nullptr);
        EXPECT_TRUE(whyNot.view().ends_with(L"cannot be loaded: it is loaded already.")) << whyNot;
        // The refused load took nothing of the first one away.
        EXPECT_TRUE(hasCommands());
        EXPECT_EQ(valuesOfQuery(), allValues);
    }
    EXPECT_EQ(GmModuleLoader::modules().size(), 1U);
    EXPECT_EQ(languageCallbackCount(), 1U);
}

TEST_F(ModuleTwice, anotherReferenceOfSystemOutlivesHostsOwn)
{
    LibraryHandle reference(::LoadLibraryW(builtModule().c_str()));
    for (int i = 0; i < 3; ++i)
    {
        const LoadedModule module;
        EXPECT_EQ(module.library(), reference.get());
        EXPECT_TRUE(hasCommands());
        EXPECT_EQ(valuesOfQuery(), allValues);
    }
    EXPECT_TRUE(LoadedModule::isInProcess());
    EXPECT_FALSE(hasCommands());
    // Its language library still follows the language as long as its code is loaded.
    EXPECT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(setUiLanguage(L"en"));
    reference.reset();
    forgetCallbacksOfGoneModules();
}

TEST_F(ModuleTwice, copyIsItsOwnModuleWithoutCommands)
{
    const WholeCopy copy;
    LoadedModule first;
    const OdEdCommandPtr edit = odedRegCmds()->lookupGlobal(L"_PC3EDIT");
    LoadedModule second(copy.file());
    EXPECT_NE(first.library(), second.library());
    EXPECT_NE(first.object(), second.object());
    // Names are unique: those that came first stay.
    EXPECT_EQ(odedRegCmds()->commands().size(), 2U);
    EXPECT_EQ(odedRegCmds()->lookupGlobal(L"_PC3EDIT"), edit);
    EXPECT_EQ(valuesOfQuery(), allValues);

    EXPECT_EQ(languageCallbackCount(), 2U);
    EXPECT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(setUiLanguage(L"en"));
}

TEST_F(ModuleTwice, unloadingEitherRemovesTheGroupsCommands)
{
    const WholeCopy copy;
    for (const bool firstGoesFirst : {true, false})
    {
        LoadedModule first;
        LoadedModule second(copy.file());
        (firstGoesFirst ? first : second).unload();
        // Both are in one group, which is removed as a whole: no command is left whose code might be unloaded.
        EXPECT_TRUE(odedRegCmds()->commands().empty());
        EXPECT_EQ(languageCallbackCount(), 1U);
        EXPECT_TRUE(setUiLanguage(L"de"));
        EXPECT_TRUE(setUiLanguage(L"en"));
    }
}

TEST_F(ModuleTwice, renamedModuleNeedsARenamedLibrary)
{
    const WholeCopy copy;
    const std::filesystem::path other = copy.folder() / L"Other.grx";
    std::filesystem::copy_file(copy.file(), other);
    {
        const MessageBoxAnswerer answerer;
        EXPECT_EQ(GmModuleLoader::load(textOf(other)).module, nullptr);
        ASSERT_EQ(answerer.boxes().size(), 1U);
        EXPECT_EQ(answerer.boxes()[0].text,
                  L"Can't load GarmPC3EditorRes.dll\nPC3 Editor commands will be unavailable.");
    }
    std::filesystem::copy_file(programFolder() / L"en" / L"GarmPC3EditorRes.dll",
                               copy.folder() / L"en" / L"OtherRes.dll");
    const LoadedModule module(other);
    EXPECT_TRUE(hasCommands());
    EXPECT_EQ(valuesOfQuery(), allValues);
}

TEST_F(ModuleTwice, fiftyTimesLeaveNothingBehind)
{
    // Under Wine the spooler's library leaks a handle each time it is unloaded, so it stays loaded.
    const LibraryHandle spooler(::LoadLibraryW(L"winspool.drv"));
    const auto once = []
    {
        const LoadedModule module;
        EXPECT_TRUE(hasCommands());
        EXPECT_EQ(valuesOfQuery(), allValues);
        EXPECT_TRUE(setUiLanguage(L"de"));
        EXPECT_TRUE(setUiLanguage(L"en"));
    };
    once();
    const std::size_t handles = openSystemHandles();
    const std::size_t views = mappedViews();
    const std::size_t objects = gdiObjects();
    const std::size_t windows = windowsOf(::GetCurrentThreadId());
    for (int i = 0; i < 50; ++i)
        once();
    EXPECT_EQ(openSystemHandles(), handles);
    EXPECT_EQ(mappedViews(), views);
    EXPECT_EQ(gdiObjects(), objects);
    EXPECT_EQ(windowsOf(::GetCurrentThreadId()), windows);
}
} // namespace
