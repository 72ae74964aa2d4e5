#include "host/GmLanguageTag.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using TagList = std::vector<OdString>;

TEST(LanguageTag, acceptsTags)
{
    for (const OdChar* tag :
         {OD_T("en"), OD_T("de-AT"), OD_T("zh-Hant-TW"), OD_T("es-419"), OD_T("gsw"), OD_T("de-x-private")})
        EXPECT_TRUE(isLanguageTag(tag)) << OdString(tag);
}

TEST(LanguageTag, refusesWhatCouldBeAPathOrIsNoTag)
{
    for (const OdChar* text :
         {OD_T(""), OD_T("."), OD_T(".."), OD_T("../en"), OD_T("en/de"), OD_T("en\\de"), OD_T("C:en"), OD_T("e"),
          OD_T("en-"), OD_T("-en"), OD_T("en--US"), OD_T("en_US"), OD_T("en US"), OD_T("1en"), OD_T("abcdefghi"),
          OD_T("de-abcdefghi"), OD_T("d\u00E9"), OD_T("en-aaaaaaaa-aaaaaaaa-aaaaaaaa-aaaaaaaa")})
        EXPECT_FALSE(isLanguageTag(text)) << OdString(text);
    EXPECT_FALSE(isLanguageTag(OdStringView(OD_T("en\0x"), 4)));
}

TEST(LanguageTag, fallsBackToMoreGeneralTags)
{
    EXPECT_EQ(languageFallbacks(OD_T("en")), (TagList{OD_T("en")}));
    EXPECT_EQ(languageFallbacks(OD_T("de-AT")), (TagList{OD_T("de-AT"), OD_T("de")}));
    EXPECT_EQ(languageFallbacks(OD_T("zh-Hant-TW")), (TagList{OD_T("zh-Hant-TW"), OD_T("zh-Hant"), OD_T("zh")}));
    EXPECT_EQ(languageFallbacks(OD_T("de-x-home")), (TagList{OD_T("de-x-home"), OD_T("de")}));
    EXPECT_TRUE(languageFallbacks(OD_T("../en")).empty());
}

TEST(LanguageLibrary, liesInTheFolderOfItsTagBesideTheModule)
{
    const TemporaryFolder folder;
    const OdString library = folder.addFile("de/EditorRes.dll");
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("de")), library);
    EXPECT_EQ(findLanguageLibrary(folder.at("Other.grx"), OD_T("de")), OdString());
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("fr")), OdString());
}

TEST(LanguageLibrary, aRegionFallsBackToItsLanguageAndIsPreferredWhenItIsThere)
{
    const TemporaryFolder folder;
    const OdString general = folder.addFile("de/EditorRes.dll");
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("de-AT")), general);
    const OdString special = folder.addFile("de-AT/EditorRes.dll");
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("de-AT")), special);
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("de")), general);
}

TEST(LanguageLibrary, takesOnlyTheLastExtensionOffTheModulesName)
{
    const TemporaryFolder folder;
    const OdString library = folder.addFile("en/Editor.2Res.dll");
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.2.grx"), OD_T("en")), library);
}

TEST(LanguageLibrary, isARegularFile)
{
    const TemporaryFolder folder;
    folder.addFolder("en/EditorRes.dll");
    EXPECT_EQ(findLanguageLibrary(folder.at("Editor.grx"), OD_T("en")), OdString());
}
