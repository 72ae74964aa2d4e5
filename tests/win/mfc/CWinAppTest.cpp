#include "mfc/CWinApp.h"

#include "mfc/AfxModuleState.h"
#include "mfc/AtlBaseModule.h"

#include <gtest/gtest.h>

namespace
{
constexpr const wchar_t* libraryName = L"mfc_language_fixture.dll";

bool libraryIsLoaded()
{
    return ::GetModuleHandleW(libraryName) != nullptr;
}

class LanguageApp : public CWinApp
{
public:
    HINSTANCE LoadAppLangResourceDLL() override
    {
        ++m_loads;
        return ::LoadLibraryW(libraryName);
    }
    int m_loads = 0;
};

class CWinAppTest : public ::testing::Test
{
protected:
    CWinAppTest() { AfxWinInit(m_instance, nullptr, nullptr, 0); }
    ~CWinAppTest() override { AfxWinInit(m_instance, nullptr, nullptr, 0); }

    const HINSTANCE m_instance = ::GetModuleHandleW(nullptr);
};

TEST_F(CWinAppTest, latestObjectIsTheApplicationWhileItLives)
{
    {
        CWinApp app;
        EXPECT_EQ(AfxGetApp(), &app);
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
}

TEST_F(CWinAppTest, initInstanceSucceedsWithoutALanguageLibrary)
{
    CWinApp app;
    EXPECT_EQ(app.InitInstance(), TRUE);
    EXPECT_EQ(app.m_hLangResourceDLL, nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), m_instance);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), m_instance);
    EXPECT_EQ(app.ExitInstance(), 0);
}

TEST_F(CWinAppTest, initInstanceMakesTheLanguageLibraryCurrent)
{
    LanguageApp app;
    EXPECT_EQ(app.InitInstance(), TRUE);
    EXPECT_EQ(app.m_loads, 1);
    ASSERT_NE(app.m_hLangResourceDLL, nullptr);
    EXPECT_EQ(app.m_hLangResourceDLL, ::GetModuleHandleW(libraryName));
    EXPECT_EQ(AfxGetResourceHandle(), app.m_hLangResourceDLL);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), app.m_hLangResourceDLL);
}

TEST_F(CWinAppTest, languageLibraryIsFreedWithTheApplication)
{
    {
        LanguageApp app;
        app.InitInstance();
        app.ExitInstance();
        EXPECT_TRUE(libraryIsLoaded());
    }
    EXPECT_FALSE(libraryIsLoaded());
    EXPECT_EQ(AfxGetResourceHandle(), m_instance) << "the handle of a freed library stayed current";
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), m_instance);
}

TEST_F(CWinAppTest, teardownLeavesAnotherCurrentResourceHandleAlone)
{
    const auto other = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x7000});
    {
        LanguageApp app;
        app.InitInstance();
        AfxSetResourceHandle(other);
        _AtlBaseModule.SetResourceInstance(other);
    }
    EXPECT_EQ(AfxGetResourceHandle(), other);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), other);
}
} // namespace
