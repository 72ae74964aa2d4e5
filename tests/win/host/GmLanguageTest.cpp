#include "host/GmLanguage.h"

#include "Fixtures.h"
#include "host/GmString.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace
{
OdString languageOf(HINSTANCE library)
{
    return GmString::loadString(1, OD_T("none"), library);
}

// A module as the host sees it: it requests its library when it is notified of a new language, and keeps the old one
// when there is none.
struct Listener
{
    HINSTANCE module = nullptr;
    LibraryHandle library;
    int calls = 0;
    BOOL answer = TRUE;
    bool throws = false;
    bool asks = true;

    BOOL onChange()
    {
        ++calls;
        if (throws)
            throw std::runtime_error("a module");
        if (!asks)
            return answer;
        if (LibraryHandle next{GmLoadAppLangResourceDLL(module, nullptr, nullptr, nullptr)})
            library = std::move(next);
        return answer;
    }
};

// First speaks English and German, Second English and a French that cannot be loaded.
class Languages : public testing::Test
{
protected:
    Languages()
    {
        first.module = firstModule.get();
        second.module = secondModule.get();
    }

    ~Languages() override
    {
        firstModule.reset();
        secondModule.reset();
        forgetCallbacksOfGoneModules();
        EXPECT_EQ(languageCallbackCount(), 0U);
        EXPECT_TRUE(setUiLanguage(OD_T("en")));
        first = {};
        second = {};
        order().clear();
    }

    void registerFirst()
    {
        first.library = LibraryHandle(GmLoadAppLangResourceDLL(first.module, nullptr, &tellFirst, nullptr));
    }
    void registerSecond()
    {
        second.library = LibraryHandle(GmLoadAppLangResourceDLL(second.module, nullptr, &tellSecond, nullptr));
    }

    static BOOL tellFirst()
    {
        order().push_back(1);
        return first.onChange();
    }
    static BOOL tellSecond()
    {
        order().push_back(2);
        return second.onChange();
    }

    static std::vector<int>& order()
    {
        static std::vector<int> instance;
        return instance;
    }

    inline static Listener first;
    inline static Listener second;

    LibraryHandle firstModule{::LoadLibraryW(fixture(OD_T("First.dll")).c_str())};
    LibraryHandle secondModule{::LoadLibraryW(fixture(OD_T("Second.dll")).c_str())};
};
} // namespace

TEST_F(Languages, englishIsTheLanguageAtTheStart)
{
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
}

TEST_F(Languages, moduleGetsLibraryOfCurrentLanguage)
{
    const LibraryHandle english{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    EXPECT_EQ(languageOf(english.get()), OD_T("English"));
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    const LibraryHandle german{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    EXPECT_EQ(languageOf(german.get()), OD_T("Deutsch"));
}

TEST_F(Languages, aRegionGetsTheLibraryOfItsLanguage)
{
    EXPECT_TRUE(setUiLanguage(OD_T("de-AT")));
    EXPECT_EQ(uiLanguage().text(), OD_T("de-AT"));
    const LibraryHandle library{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    EXPECT_EQ(languageOf(library.get()), OD_T("Deutsch"));
}

TEST_F(Languages, moduleWithoutLibraryOfLanguageGetsNull)
{
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(GmLoadAppLangResourceDLL(second.module, nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(GmLoadAppLangResourceDLL(nullptr, nullptr, nullptr, nullptr), nullptr);
}

TEST_F(Languages, aLibraryThatIsNoneGivesNull)
{
    EXPECT_TRUE(setUiLanguage(OD_T("fr")));
    EXPECT_EQ(GmLoadAppLangResourceDLL(second.module, nullptr, nullptr, nullptr), nullptr);
}

TEST_F(Languages, eachRequestGivesAReferenceOfItsOwn)
{
    LibraryHandle one{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    LibraryHandle two{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    const HINSTANCE oneHandle = one.get();
    const HINSTANCE twoHandle = two.get();
    EXPECT_TRUE(isMapped(oneHandle));
    one.reset();
    EXPECT_EQ(languageOf(two.get()), OD_T("English"));
    two.reset();
    EXPECT_FALSE(isMapped(oneHandle));
    EXPECT_FALSE(isMapped(twoHandle));
}

TEST_F(Languages, aHundredRequestsLeaveNothingMapped)
{
    std::vector<HINSTANCE> handles;
    for (int i = 0; i < 100; ++i)
    {
        const LibraryHandle library{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
        handles.push_back(library.get());
    }
    for (const HINSTANCE handle : handles)
        EXPECT_FALSE(isMapped(handle));
}

TEST_F(Languages, theHandleServesDialogsAndBitmaps)
{
    const LibraryHandle library{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    ASSERT_NE(::FindResourceW(library.get(), MAKEINTRESOURCEW(100), MAKEINTRESOURCEW(5)), nullptr);

    const auto procedure = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    const HWND dialog = ::CreateDialogParamW(library.get(), MAKEINTRESOURCEW(100), nullptr, procedure, 0);
    ASSERT_NE(dialog, nullptr);
    OdChar text[32] = {};
    ::GetDlgItemTextW(dialog, 101, text, 32);
    EXPECT_EQ(OdString(text), OD_T("English"));
    ::DestroyWindow(dialog);

    const HANDLE bitmap = ::LoadImageW(library.get(), MAKEINTRESOURCEW(102), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    ASSERT_NE(bitmap, nullptr);
    BITMAP shape = {};
    ::GetObjectW(bitmap, sizeof(shape), &shape);
    EXPECT_EQ(shape.bmWidth, 8);
    ::DeleteObject(bitmap);
}

TEST_F(Languages, aChangeTellsTheModules)
{
    registerFirst();
    EXPECT_EQ(languageOf(first.library.get()), OD_T("English"));
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(languageOf(first.library.get()), OD_T("Deutsch"));
    EXPECT_TRUE(setUiLanguage(OD_T("en")));
    EXPECT_EQ(first.calls, 2);
    EXPECT_EQ(languageOf(first.library.get()), OD_T("English"));
}

TEST_F(Languages, aLaterRequestWithoutCallbackKeepsTheFirst)
{
    registerFirst();
    const LibraryHandle again{GmLoadAppLangResourceDLL(first.module, nullptr, nullptr, nullptr)};
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_TRUE(setUiLanguage(OD_T("en")));
    EXPECT_EQ(first.calls, 2) << "the module asked without a callback while it was told";
}

TEST_F(Languages, laterCallbackOfSameModuleReplacesFirst)
{
    registerFirst();
    second.module = first.module;
    registerSecond();
    EXPECT_EQ(languageCallbackCount(), 1U);
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(order(), std::vector<int>{2});
}

TEST_F(Languages, languageWithoutLibraryKeepsOldOne)
{
    registerFirst();
    const HINSTANCE before = first.library.get();
    EXPECT_FALSE(setUiLanguage(OD_T("fr")));
    EXPECT_EQ(first.calls, 1) << "it was asked, and kept what it had";
    EXPECT_EQ(first.library.get(), before);
    EXPECT_EQ(languageOf(first.library.get()), OD_T("English"));
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
}

TEST_F(Languages, modulesAreToldInOrderOfTheirRegistration)
{
    registerSecond();
    registerFirst();
    first.asks = false;
    second.asks = false;
    EXPECT_TRUE(setUiLanguage(OD_T("fr")));
    EXPECT_EQ(order(), (std::vector<int>{2, 1}));
}

TEST_F(Languages, failedSwitchRevertsTheEarlierOnes)
{
    registerFirst();
    registerSecond();
    EXPECT_FALSE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(order(), (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(languageOf(first.library.get()), OD_T("English"));
    EXPECT_EQ(languageOf(second.library.get()), OD_T("English"));
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
}

TEST_F(Languages, callbackThatIsNotContentStopsChange)
{
    registerFirst();
    registerSecond();
    first.asks = false;
    first.answer = FALSE;
    EXPECT_FALSE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(order(), std::vector<int>{1});
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
}

TEST_F(Languages, aCallbackThatThrowsStopsTheChange)
{
    registerFirst();
    first.throws = true;
    EXPECT_NO_THROW(EXPECT_FALSE(setUiLanguage(OD_T("de"))));
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
    first.throws = false;
    EXPECT_TRUE(setUiLanguage(OD_T("de"))) << "the failure left nothing behind";
}

TEST_F(Languages, theSameLanguageTellsNobody)
{
    registerFirst();
    EXPECT_TRUE(setUiLanguage(OD_T("EN")));
    EXPECT_EQ(first.calls, 0);
}

TEST_F(Languages, invalidTagIsRefusedWithoutCallbacks)
{
    registerFirst();
    for (const OdChar* text : {OD_T(""), OD_T(".."), OD_T("de\\..\\en"), OD_T("de;en")})
        EXPECT_FALSE(setUiLanguage(text)) << OdString(text);
    EXPECT_EQ(first.calls, 0);
    EXPECT_EQ(uiLanguage().text(), OD_T("en"));
}

TEST_F(Languages, aChangeFromWithinACallbackIsRefused)
{
    static bool inner = true;
    const auto callback = []() -> BOOL
    {
        inner = setUiLanguage(OD_T("en"));
        return TRUE;
    };
    const LibraryHandle library{GmLoadAppLangResourceDLL(first.module, nullptr, callback, nullptr)};
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_FALSE(inner);
    EXPECT_EQ(uiLanguage().text(), OD_T("de"));
}

TEST_F(Languages, callbackIsKeptEvenWithoutALibrary)
{
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    registerSecond();
    EXPECT_EQ(second.library.get(), nullptr);
    EXPECT_TRUE(setUiLanguage(OD_T("en")));
    EXPECT_EQ(languageOf(second.library.get()), OD_T("English"));
}

TEST_F(Languages, callbackOfModuleThatIsGoneIsForgotten)
{
    registerFirst();
    registerSecond();
    firstModule.reset();
    EXPECT_TRUE(setUiLanguage(OD_T("en-GB")));
    EXPECT_EQ(order(), std::vector<int>{2});
    EXPECT_EQ(languageCallbackCount(), 1U);
}

TEST_F(Languages, moduleHeldElsewhereIsStillThere)
{
    registerFirst();
    const LibraryHandle held{::LoadLibraryW(fixture(OD_T("First.dll")).c_str())};
    firstModule.reset();
    forgetCallbacksOfGoneModules();
    EXPECT_EQ(languageCallbackCount(), 1U);
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(first.calls, 1);
}

TEST_F(Languages, aModuleMayGoWhileAnotherIsTold)
{
    static LibraryHandle* goes = nullptr;
    goes = &secondModule;
    const auto callback = []() -> BOOL
    {
        goes->reset();
        forgetCallbacksOfGoneModules();
        return TRUE;
    };
    const LibraryHandle library{GmLoadAppLangResourceDLL(first.module, nullptr, callback, nullptr)};
    registerSecond();
    EXPECT_TRUE(setUiLanguage(OD_T("de")));
    EXPECT_EQ(second.calls, 0);
}
