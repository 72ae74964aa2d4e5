#include "GarmPC3Editor/GarmPC3EditorApp.h"

#include "GarmPC3Editor/Commands/CommandGroup.h"
#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/ThisModule.h"
#include "kernel/OdEdCommandStack.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AtlBaseModule.h"
#include "tests/support/room/PrinterRoom.h"
#include "tests/win/module/ScriptedHost.h"

#include <gtest/gtest.h>

namespace
{
constexpr const wchar_t* firstLibrary = L"module_language_fixture_1.dll";
constexpr const wchar_t* secondLibrary = L"module_language_fixture_2.dll";

bool isLoaded(const wchar_t* name)
{
    return ::GetModuleHandleW(name) != nullptr;
}

void setDetachHook(HINSTANCE library, void (*hook)())
{
    const auto set = reinterpret_cast<void (*)(void (*)())>(
        reinterpret_cast<void (*)()>(::GetProcAddress(library, "setDetachHook")));
    ASSERT_NE(set, nullptr);
    set(hook);
}

class GarmPC3EditorAppTest : public ::testing::Test
{
protected:
    GarmPC3EditorAppTest() { AfxWinInit(m_instance, nullptr, nullptr, 0); }

    ~GarmPC3EditorAppTest() override
    {
        if (theApp.m_hLangResourceDLL)
            ::FreeLibrary(theApp.m_hLangResourceDLL);
        theApp.m_hLangResourceDLL = nullptr;
        AfxWinInit(m_instance, nullptr, nullptr, 0);
        EXPECT_FALSE(isLoaded(firstLibrary));
        EXPECT_FALSE(isLoaded(secondLibrary));
    }

    // Starts the application with the first library.
    void start()
    {
        setLanguageAnswers({::LoadLibraryW(firstLibrary)});
        ASSERT_EQ(theApp.InitInstance(), TRUE);
        ASSERT_NE(theApp.m_hLangResourceDLL, nullptr);
    }

    const HINSTANCE m_instance = ::GetModuleHandleW(nullptr);
    PrinterRoom m_room;
};

TEST_F(GarmPC3EditorAppTest, isTheApplicationOfTheModule)
{
    EXPECT_EQ(AfxGetApp(), &theApp);
    EXPECT_EQ(theApp.m_hInstance, m_instance);
}

TEST_F(GarmPC3EditorAppTest, resourceInstanceIsNullUntilLoaded)
{
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), nullptr);
    EXPECT_EQ(garmPC3EditorResourceInstance(), nullptr);
    start();
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), ::GetModuleHandleW(firstLibrary));
    EXPECT_EQ(garmPC3EditorResourceInstance(), ::GetModuleHandleW(firstLibrary));
}

TEST_F(GarmPC3EditorAppTest, startAsksHostWithItsInstanceAndCallback)
{
    start();
    ASSERT_EQ(languageRequests().size(), 1U);
    const LanguageRequest request = languageRequests()[0];
    EXPECT_EQ(request.module, m_instance);
    EXPECT_EQ(request.reserved1, nullptr);
    EXPECT_NE(request.callback, nullptr);
    EXPECT_EQ(request.reserved2, nullptr);
}

TEST_F(GarmPC3EditorAppTest, startMakesTheLibraryCurrentAndShowsNothing)
{
    start();
    EXPECT_EQ(AfxGetResourceHandle(), theApp.m_hLangResourceDLL);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), theApp.m_hLangResourceDLL);
    EXPECT_TRUE(m_room.shownMessages().empty());
}

TEST_F(GarmPC3EditorAppTest, startWithoutLibraryIsRefusedWithOneMessage)
{
    setLanguageAnswers({nullptr});
    EXPECT_EQ(theApp.InitInstance(), FALSE);
    ASSERT_EQ(m_room.shownMessages().size(), 1U);
    const room::ShownMessage box = m_room.shownMessages()[0];
    EXPECT_EQ(box.owner, nullptr);
    EXPECT_EQ(box.text, L"Can't load GarmPC3EditorRes.dll\nPC3 Editor commands will be unavailable.");
    EXPECT_EQ(box.caption, L"Garmont");
    EXPECT_EQ(box.type, 0x10U);
    EXPECT_EQ(theApp.m_hLangResourceDLL, nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), m_instance);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), m_instance);
}

TEST_F(GarmPC3EditorAppTest, theEditCommandIsRegisteredWithTheLibrary)
{
    start();
    EXPECT_EQ(registerCommands(), 5100);
    {
        const auto command = odrxCast<PC3EditCommand>(odedRegCmds()->lookupGlobal(L"_PC3EDIT"));
        ASSERT_TRUE(command);
        EXPECT_EQ(command->resourceInstance(), theApp.m_hLangResourceDLL);
    }
    EXPECT_EQ(unregisterCommands(), 5100);
}

TEST_F(GarmPC3EditorAppTest, reloadAsksWithoutCallback)
{
    start();
    setLanguageAnswers({::LoadLibraryW(secondLibrary)});
    theApp.ReloadAppLangResourceDLL();
    ASSERT_EQ(languageRequests().size(), 1U);
    EXPECT_EQ(languageRequests()[0].module, m_instance);
    EXPECT_EQ(languageRequests()[0].reserved1, nullptr);
    EXPECT_EQ(languageRequests()[0].callback, nullptr);
    EXPECT_EQ(languageRequests()[0].reserved2, nullptr);
}

// What is current when the old library is unloaded.
HINSTANCE storedAtDetach = nullptr;
HINSTANCE currentAtDetach = nullptr;
HINSTANCE atlAtDetach = nullptr;

TEST_F(GarmPC3EditorAppTest, reloadFreesTheOldLibraryLast)
{
    start();
    setDetachHook(theApp.m_hLangResourceDLL,
                  []
                  {
                      storedAtDetach = GarmPC3EditorApp::resourceInstance();
                      currentAtDetach = AfxGetResourceHandle();
                      atlAtDetach = _AtlBaseModule.GetResourceInstance();
                  });
    const HINSTANCE second = ::LoadLibraryW(secondLibrary);
    setLanguageAnswers({second});
    theApp.ReloadAppLangResourceDLL();

    EXPECT_FALSE(isLoaded(firstLibrary));
    EXPECT_EQ(storedAtDetach, second);
    EXPECT_EQ(currentAtDetach, second);
    EXPECT_EQ(atlAtDetach, second);
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), second);
    EXPECT_EQ(AfxGetResourceHandle(), second);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), second);
}

TEST_F(GarmPC3EditorAppTest, reloadWithoutLibraryChangesNothingAndShowsNothing)
{
    start();
    const HINSTANCE first = theApp.m_hLangResourceDLL;
    setLanguageAnswers({nullptr});
    theApp.ReloadAppLangResourceDLL();
    EXPECT_TRUE(isLoaded(firstLibrary));
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), first);
    EXPECT_EQ(AfxGetResourceHandle(), first);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), first);
    EXPECT_TRUE(m_room.shownMessages().empty());
}

TEST_F(GarmPC3EditorAppTest, reloadUsesTheModulesOwnState)
{
    start();
    const HINSTANCE second = ::LoadLibraryW(secondLibrary);
    setLanguageAnswers({second});
    AFX_MODULE_STATE hosts;
    hosts.m_hCurrentResourceHandle = m_instance;
    {
        AFX_MANAGE_STATE(&hosts);
        theApp.ReloadAppLangResourceDLL();
        EXPECT_EQ(AfxGetModuleState(), &hosts);
    }
    EXPECT_EQ(hosts.m_hCurrentResourceHandle, m_instance);
    EXPECT_EQ(AfxGetResourceHandle(), second);
}

TEST_F(GarmPC3EditorAppTest, theCallbackReloadsAndAnswersTrue)
{
    start();
    const auto callback = languageRequests()[0].callback;
    const HINSTANCE second = ::LoadLibraryW(secondLibrary);
    setLanguageAnswers({second});
    EXPECT_EQ(callback(), TRUE);
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), second);
}

TEST_F(GarmPC3EditorAppTest, theCallbackAnswersTrueAlsoWithoutLibrary)
{
    start();
    const auto callback = languageRequests()[0].callback;
    setLanguageAnswers({nullptr});
    EXPECT_EQ(callback(), TRUE);
    EXPECT_EQ(languageRequests().size(), 1U);
    EXPECT_EQ(GarmPC3EditorApp::resourceInstance(), ::GetModuleHandleW(firstLibrary));
}
} // namespace
