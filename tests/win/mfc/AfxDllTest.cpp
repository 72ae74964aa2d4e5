#include "mfc/AfxDll.h"

#include "mfc/CWinApp.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
class ScriptedApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        ++m_starts;
        if (m_initThrows)
            throw std::runtime_error("no start");
        return m_answer;
    }
    int ExitInstance() override
    {
        ++m_ends;
        if (m_exitThrows)
            throw std::runtime_error("no end");
        return 0;
    }

    BOOL m_answer = TRUE;
    bool m_initThrows = false;
    bool m_exitThrows = false;
    int m_starts = 0;
    int m_ends = 0;
};

const HINSTANCE instance = ::GetModuleHandleW(nullptr);

TEST(AfxDll, attachAndDetachRunTheirHandlersOnce)
{
    ScriptedApp app;
    EXPECT_TRUE(AfxDllProcessAttach(instance));
    EXPECT_EQ(app.m_hInstance, instance);
    EXPECT_EQ(app.m_starts, 1);
    EXPECT_EQ(app.m_ends, 0);
    AfxDllProcessDetach();
    AfxDllProcessDetach();
    EXPECT_EQ(app.m_ends, 1);
}

TEST(AfxDll, initInstanceFalseRefusesLoadAndEndsOnce)
{
    ScriptedApp app;
    app.m_answer = FALSE;
    EXPECT_FALSE(AfxDllProcessAttach(instance));
    EXPECT_EQ(app.m_ends, 1);
    // The C runtime and the loader each report a detach after a refused attach.
    AfxDllProcessDetach();
    AfxDllProcessDetach();
    EXPECT_EQ(app.m_ends, 1);
}

TEST(AfxDll, whatInitInstanceThrowsRefusesTheLoad)
{
    ScriptedApp app;
    app.m_initThrows = true;
    EXPECT_FALSE(AfxDllProcessAttach(instance));
    EXPECT_EQ(app.m_starts, 1);
    EXPECT_EQ(app.m_ends, 1);
}

TEST(AfxDll, whatExitInstanceThrowsStaysInside)
{
    ScriptedApp app;
    app.m_exitThrows = true;
    EXPECT_TRUE(AfxDllProcessAttach(instance));
    AfxDllProcessDetach();
    EXPECT_EQ(app.m_ends, 1);
}

TEST(AfxDll, aModuleWithoutApplicationObjectLoads)
{
    EXPECT_TRUE(AfxDllProcessAttach(instance));
    AfxDllProcessDetach();
}
} // namespace
