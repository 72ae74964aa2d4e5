#include "GarmPC3Editor/PC3ResourceSentry.h"

#include "GarmPC3Editor/GarmPC3EditorApp.h"
#include "mfc/AfxModuleState.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<PC3ResourceSentry>);
static_assert(sizeof(PC3ResourceSentry) == 2 * sizeof(void*), "a table of virtual functions and one handle");

namespace
{
HINSTANCE handle(std::uintptr_t value)
{
    return reinterpret_cast<HINSTANCE>(value);
}

const HINSTANCE language = handle(0x10000);
const HINSTANCE hosts = handle(0x20000);
const HINSTANCE others = handle(0x30000);

class PC3ResourceSentryTest : public ::testing::Test
{
protected:
    PC3ResourceSentryTest()
    {
        theApp.m_hLangResourceDLL = language;
        AfxSetResourceHandle(hosts);
    }
    ~PC3ResourceSentryTest() override
    {
        theApp.m_hLangResourceDLL = nullptr;
        AfxSetResourceHandle(nullptr);
    }
};

TEST_F(PC3ResourceSentryTest, theLanguageLibraryIsCurrentForTheScope)
{
    {
        const PC3ResourceSentry sentry;
        EXPECT_EQ(AfxGetResourceHandle(), language);
    }
    EXPECT_EQ(AfxGetResourceHandle(), hosts);
}

TEST_F(PC3ResourceSentryTest, equalHandlesAreLeftAlone)
{
    AfxSetResourceHandle(language);
    {
        const PC3ResourceSentry sentry;
        EXPECT_EQ(AfxGetResourceHandle(), language);
    }
    EXPECT_EQ(AfxGetResourceHandle(), language);
}

TEST_F(PC3ResourceSentryTest, restoresWhateverHasHappenedSince)
{
    {
        const PC3ResourceSentry sentry;
        AfxSetResourceHandle(others);
    }
    EXPECT_EQ(AfxGetResourceHandle(), hosts);

    AfxSetResourceHandle(language);
    {
        // Made while the language library was current already: it restores all the same.
        const PC3ResourceSentry sentry;
        AfxSetResourceHandle(others);
    }
    EXPECT_EQ(AfxGetResourceHandle(), language);
}

TEST_F(PC3ResourceSentryTest, restoresHandleOfBeforeLanguageSwitchToo)
{
    // The host's handle comes back even though the module's library is another one by now.
    {
        const PC3ResourceSentry sentry;
        theApp.m_hLangResourceDLL = others;
        AfxSetResourceHandle(others);
    }
    EXPECT_EQ(AfxGetResourceHandle(), hosts);
}

TEST_F(PC3ResourceSentryTest, copyKnowsTheSameHandle)
{
    auto copy = std::unique_ptr<PC3ResourceSentry>();
    {
        const PC3ResourceSentry sentry;
        AfxSetResourceHandle(others);
        copy = std::make_unique<PC3ResourceSentry>(sentry);
        EXPECT_EQ(AfxGetResourceHandle(), others);
    }
    AfxSetResourceHandle(others);
    copy.reset();
    EXPECT_EQ(AfxGetResourceHandle(), hosts);
}

TEST_F(PC3ResourceSentryTest, assignmentTakesTheOthersHandle)
{
    {
        PC3ResourceSentry target;
        {
            AfxSetResourceHandle(others);
            const PC3ResourceSentry source;
            target = source;
            EXPECT_EQ(AfxGetResourceHandle(), language);
        }
        EXPECT_EQ(AfxGetResourceHandle(), others);
        AfxSetResourceHandle(language);
    }
    EXPECT_EQ(AfxGetResourceHandle(), others);
}

TEST_F(PC3ResourceSentryTest, sentriesNest)
{
    {
        const PC3ResourceSentry outer;
        {
            const PC3ResourceSentry inner;
            EXPECT_EQ(AfxGetResourceHandle(), language);
        }
        EXPECT_EQ(AfxGetResourceHandle(), language);
    }
    EXPECT_EQ(AfxGetResourceHandle(), hosts);
}
} // namespace
