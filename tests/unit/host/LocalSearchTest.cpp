#include "host/LocalSearch.h"

#include "host/GarmInterfaces.h"
#include "tests/support/CurrentFolder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
namespace fs = std::filesystem;

const OdString poison = OD_T("untouched");

// The path that is found; a search without a result must leave the poison alone.
OdString found(const OdString& name, const OdString& searchPath)
{
    OdString path = poison;
    const bool result = LocalSearch::SearchPC3File(name, searchPath, path);
    EXPECT_EQ(result, path != poison);
    return path;
}

class LocalSearchTest : public testing::Test
{
protected:
    OdString bothFolders() const { return folder.path() + OD_T(";") + second.path(); }

    const TemporaryFolder folder;
    const TemporaryFolder second;
};
} // namespace

TEST_F(LocalSearchTest, searchesTheFoldersInOrder)
{
    const OdString later = second.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), bothFolders()), later);
    const OdString earlier = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), bothFolders()), earlier);
}

TEST_F(LocalSearchTest, triesNameThenExtensionInEachFolder)
{
    const OdString asGivenLater = second.addFile("A0");
    EXPECT_EQ(found(OD_T("A0"), bothFolders()), asGivenLater);
    const OdString withExtension = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), bothFolders()), withExtension) << "an earlier folder wins over a better name";
    const OdString asGiven = folder.addFile("A0");
    EXPECT_EQ(found(OD_T("A0"), bothFolders()), asGiven);
}

TEST_F(LocalSearchTest, aSecondExtensionIsTheLastResort)
{
    const OdString doubled = folder.addFile("A0.pc3.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), folder.path()), doubled);
    const OdString plain = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), folder.path()), plain);
}

TEST_F(LocalSearchTest, aPathIsFirstTriedUnchanged)
{
    folder.addFile("A0.pc3");
    const OdString file = second.addFile("A0.pc3");
    EXPECT_EQ(found(file, folder.path()), file);
    EXPECT_EQ(found(second.at("A0"), folder.path()), file);
}

TEST_F(LocalSearchTest, aMissingPathIsFoundByItsName)
{
    const OdString file = folder.addFile("A0.pc3");
    EXPECT_EQ(found(second.at("A0.pc3"), folder.path()), file);
}

TEST_F(LocalSearchTest, foreignPathsAreFoundByName)
{
    const OdString file = folder.addFile("A0.pc3");
    // Found instead if the path were wrongly appended to the folder.
    folder.addFile("plots/A0.pc3", "another");
    for (const OdChar* name :
         {OD_T("C:\\plots\\A0.pc3"), OD_T("C:A0.pc3"), OD_T("\\plots\\A0.pc3"), OD_T("/plots/A0.pc3"),
          OD_T("\\\\srv\\plots\\A0.pc3"), OD_T("//srv/plots/A0.pc3"), OD_T("\\\\?\\C:\\plots\\A0.pc3"),
          OD_T("\\\\?\\UNC\\srv\\plots\\A0.pc3"), OD_T("//srv/plots/A0"), OD_T("//?/C:/plots/A0")})
        EXPECT_EQ(found(name, folder.path()), file) << OdString(name);
}

TEST_F(LocalSearchTest, aDeviceNameIsNotSearched)
{
    const OdString file = folder.addFile("null.pc3");
    EXPECT_EQ(found(OD_T("null"), folder.path()), file);
    for (const OdChar* name : {OD_T("NUL"), OD_T("nul.pc3"), OD_T("com1.pc3"), OD_T("plots\\NUL"), OD_T("\\\\.\\NUL")})
        EXPECT_EQ(found(name, folder.path()), poison) << OdString(name);
}

TEST_F(LocalSearchTest, aRelativePathStartsAtTheCurrentFolder)
{
    const CurrentFolder inside(second.path());
    folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("large/A0.pc3"), folder.path()), poison) << "its folder is not ignored";

    const OdString below = folder.addFile("large/A0.pc3");
    EXPECT_EQ(found(OD_T("large/A0.pc3"), folder.path()), below);
    second.addFile("large/A0.pc3");
    const OdString here = found(OD_T("large/A0.pc3"), folder.path());
    EXPECT_TRUE(fs::equivalent(fs::path(here.view()), fs::path(second.at("large/A0.pc3").view())));
}

TEST_F(LocalSearchTest, aBareNameIgnoresTheCurrentFolder)
{
    const CurrentFolder inside(second.path());
    second.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), OdString()), poison);
}

TEST_F(LocalSearchTest, theResultIsAFullPath)
{
    const CurrentFolder inside(second.path());
    second.addFile("sub/A0.pc3");
    const OdString path = found(OD_T("A0.pc3"), OD_T("./sub"));
    EXPECT_TRUE(fs::path(path.view()).is_absolute()) << path;
    EXPECT_TRUE(fs::equivalent(fs::path(path.view()), fs::path(second.at("sub/A0.pc3").view())));
}

TEST_F(LocalSearchTest, onlyRegularFilesAreFound)
{
    folder.addFolder("A0");
    const OdString file = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), folder.path()), file);

    folder.addFolder("A1.pc3");
    EXPECT_EQ(found(OD_T("A1"), folder.path()), poison);
    EXPECT_EQ(found(folder.at("A1.pc3"), OdString()), poison);
}

TEST_F(LocalSearchTest, anInvalidNameIsNotFound)
{
    folder.addFile("A0.pc3");
    folder.addFile(".pc3");
    EXPECT_EQ(found(OdString(), folder.path()), poison) << "not even .pc3";
    EXPECT_EQ(found(OdString(OD_T("A0.pc3\0x"), 8), folder.path()), poison);
    EXPECT_EQ(found(folder.path() + OD_T("/"), folder.path()), poison);

    const OdChar loneSurrogate[] = {0xD800, 0};
    EXPECT_EQ(found(loneSurrogate, folder.path()), poison);
    EXPECT_EQ(found(OdString(std::basic_string<OdChar>(70000, 'x')), folder.path()), poison);
}

TEST_F(LocalSearchTest, emptyAndMissingFoldersAreSkipped)
{
    const OdString file = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), OD_T(";") + folder.at("missing") + OD_T(";;") + folder.path() + OD_T(";")), file);
    EXPECT_EQ(found(OD_T("A0"), OdString()), poison);
}

TEST_F(LocalSearchTest, namesMayContainAnyCharacters)
{
    const OdString file = folder.addFile(fs::path(OdStringView(OD_T("Gro\u00DFformat \u5370\u5237.pc3"))));
    EXPECT_EQ(found(OD_T("Gro\u00DFformat \u5370\u5237"), folder.path()), file);
}

TEST_F(LocalSearchTest, theHostSearchPathIsTheDefault)
{
    const OdString file = folder.addFile("A0.pc3");
    OdString path = poison;
    getMainInternalInterface()->setPlotCfgSearchPath(OdString());
    EXPECT_FALSE(LocalSearch::SearchPC3File(OD_T("A0"), path));
    EXPECT_EQ(path, poison);
    getMainInternalInterface()->setPlotCfgSearchPath(folder.path());
    EXPECT_TRUE(LocalSearch::SearchPC3File(OD_T("A0"), path));
    EXPECT_EQ(path, file);
    getMainInternalInterface()->setPlotCfgSearchPath(OdString());
}

TEST_F(LocalSearchTest, aBackgroundSearchUsesAConsistentPath)
{
    // Every path that the host sets leads to the file, so only a search that mixed two paths would miss it.
    folder.addFile("A0.pc3");
    second.addFile("A0.pc3");
    getMainInternalInterface()->setPlotCfgSearchPath(folder.path());

    int misses = 0;
    std::thread background(
        [&misses]
        {
            OdString path;
            for (int i = 0; i < 200; ++i)
                misses += LocalSearch::SearchPC3File(OD_T("A0"), path) ? 0 : 1;
        });
    for (int i = 0; i < 200; ++i)
        getMainInternalInterface()->setPlotCfgSearchPath(i % 2 ? folder.path() : second.path());
    background.join();
    EXPECT_EQ(misses, 0);
    getMainInternalInterface()->setPlotCfgSearchPath(OdString());
}
