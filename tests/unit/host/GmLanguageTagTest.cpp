#include "host/GmLanguageTag.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace
{
using TagList = std::vector<OdString>;

GmLanguageTag tag(const OdChar* text)
{
    return GmLanguageTag::from(text).value();
}

class LanguageLibrary : public testing::Test
{
protected:
    OdString found(const char* module, const OdChar* text) const
    {
        return findLanguageLibrary(folder.at(module), tag(text));
    }

    const TemporaryFolder folder;
};
} // namespace

TEST(LanguageTag, acceptsTags)
{
    for (const OdChar* text :
         {OD_T("en"), OD_T("de-AT"), OD_T("zh-Hant-TW"), OD_T("es-419"), OD_T("gsw"), OD_T("de-x-private")})
        EXPECT_EQ(tag(text).text(), text);
}

TEST(LanguageTag, refusesPathsAndInvalidTags)
{
    for (const OdChar* text :
         {OD_T(""), OD_T("."), OD_T(".."), OD_T("../en"), OD_T("en/de"), OD_T("en\\de"), OD_T("C:en"), OD_T("e"),
          OD_T("en-"), OD_T("-en"), OD_T("en--US"), OD_T("en_US"), OD_T("en US"), OD_T("1en"), OD_T("abcdefghi"),
          OD_T("de-abcdefghi"), OD_T("d\u00E9"), OD_T("en-aaaaaaaa-aaaaaaaa-aaaaaaaa-aaaaaaaa")})
        EXPECT_FALSE(GmLanguageTag::from(text)) << OdString(text);
    EXPECT_FALSE(GmLanguageTag::from(OdStringView(OD_T("en\0x"), 4)));
}

TEST(LanguageTag, fallsBackToMoreGeneralTags)
{
    EXPECT_EQ(tag(OD_T("en")).fallbacks(), (TagList{OD_T("en")}));
    EXPECT_EQ(tag(OD_T("de-AT")).fallbacks(), (TagList{OD_T("de-AT"), OD_T("de")}));
    EXPECT_EQ(tag(OD_T("zh-Hant-TW")).fallbacks(), (TagList{OD_T("zh-Hant-TW"), OD_T("zh-Hant"), OD_T("zh")}));
    EXPECT_EQ(tag(OD_T("de-x-home")).fallbacks(), (TagList{OD_T("de-x-home"), OD_T("de")}));
}

TEST_F(LanguageLibrary, isInTheFolderOfItsTag)
{
    const OdString library = folder.addFile("de/EditorRes.dll");
    EXPECT_EQ(found("Editor.grx", OD_T("de")), library);
    EXPECT_EQ(found("Other.grx", OD_T("de")), OdString());
    EXPECT_EQ(found("Editor.grx", OD_T("fr")), OdString());
}

TEST_F(LanguageLibrary, aRegionIsPreferredToItsLanguage)
{
    const OdString general = folder.addFile("de/EditorRes.dll");
    EXPECT_EQ(found("Editor.grx", OD_T("de-AT")), general);
    const OdString special = folder.addFile("de-AT/EditorRes.dll");
    EXPECT_EQ(found("Editor.grx", OD_T("de-AT")), special);
    EXPECT_EQ(found("Editor.grx", OD_T("de")), general);
}

TEST_F(LanguageLibrary, replacesOnlyTheLastExtension)
{
    const OdString library = folder.addFile("en/Editor.2Res.dll");
    EXPECT_EQ(found("Editor.2.grx", OD_T("en")), library);
}

TEST_F(LanguageLibrary, mustBeARegularFile)
{
    folder.addFolder("en/EditorRes.dll");
    EXPECT_EQ(found("Editor.grx", OD_T("en")), OdString());
}
