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

// What is found, or the poison that a search without result leaves alone.
OdString found(const OdString& name, const OdString& searchPath)
{
    OdString path = poison;
    const bool result = LocalSearch::SearchPC3File(name, searchPath, path);
    EXPECT_EQ(result, path != poison);
    return path;
}
} // namespace

TEST(LocalSearch, looksThroughTheFoldersInTheirOrder)
{
    const TemporaryFolder first;
    const TemporaryFolder second;
    const OdString searchPath = first.path() + OD_T(";") + second.path();
    const OdString later = second.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), searchPath), later);
    const OdString earlier = first.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), searchPath), earlier);
}

TEST(LocalSearch, triesEachFolderWithoutAndWithTheExtension)
{
    const TemporaryFolder first;
    const TemporaryFolder second;
    const OdString searchPath = first.path() + OD_T(";") + second.path();
    const OdString asGivenLater = second.addFile("A0");
    EXPECT_EQ(found(OD_T("A0"), searchPath), asGivenLater);
    const OdString withExtension = first.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), searchPath), withExtension) << "the first folder comes before the better name";
    const OdString asGiven = first.addFile("A0");
    EXPECT_EQ(found(OD_T("A0"), searchPath), asGiven);
}

TEST(LocalSearch, extensionIsRepeatedOnlyIfNothingIsFound)
{
    const TemporaryFolder folder;
    const OdString doubled = folder.addFile("A0.pc3.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), folder.path()), doubled);
    const OdString plain = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), folder.path()), plain);
}

TEST(LocalSearch, pathWithAFolderIsFirstTriedUnchanged)
{
    const TemporaryFolder elsewhere;
    const TemporaryFolder onPath;
    onPath.addFile("A0.pc3");
    const OdString file = elsewhere.addFile("A0.pc3");
    EXPECT_EQ(found(file, onPath.path()), file);
    EXPECT_EQ(found(elsewhere.at("A0"), onPath.path()), file);
}

TEST(LocalSearch, missingAbsolutePathIsSearchedByFileName)
{
    const TemporaryFolder elsewhere;
    const TemporaryFolder onPath;
    const OdString file = onPath.addFile("A0.pc3");
    EXPECT_EQ(found(elsewhere.at("A0.pc3"), onPath.path()), file);
}

TEST(LocalSearch, foreignPathIsSearchedByFileName)
{
    const TemporaryFolder onPath;
    const OdString file = onPath.addFile("A0.pc3");
    // Where these could be put behind the folder they would be found there.
    onPath.addFile("plots/A0.pc3", "another");
    for (const OdChar* name :
         {OD_T("C:\\plots\\A0.pc3"), OD_T("C:A0.pc3"), OD_T("\\plots\\A0.pc3"), OD_T("/plots/A0.pc3"),
          OD_T("\\\\srv\\plots\\A0.pc3"), OD_T("//srv/plots/A0.pc3"), OD_T("\\\\?\\C:\\plots\\A0.pc3"),
          OD_T("\\\\?\\UNC\\srv\\plots\\A0.pc3"), OD_T("//srv/plots/A0"), OD_T("//?/C:/plots/A0")})
        EXPECT_EQ(found(name, onPath.path()), file) << OdString(name);
}

TEST(LocalSearch, nameOfDeviceIsNotLookedFor)
{
    const TemporaryFolder folder;
    const OdString file = folder.addFile("null.pc3");
    EXPECT_EQ(found(OD_T("null"), folder.path()), file);
    for (const OdChar* name : {OD_T("NUL"), OD_T("nul.pc3"), OD_T("com1.pc3"), OD_T("plots\\NUL"), OD_T("\\\\.\\NUL")})
        EXPECT_EQ(found(name, folder.path()), poison) << OdString(name);
}

TEST(LocalSearch, relativePathIsTriedInEachFolder)
{
    const TemporaryFolder current;
    const TemporaryFolder onPath;
    const CurrentFolder inside(current.path());
    onPath.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("large/A0.pc3"), onPath.path()), poison) << "its folder is part of the name";

    const OdString behind = onPath.addFile("large/A0.pc3");
    EXPECT_EQ(found(OD_T("large/A0.pc3"), onPath.path()), behind);
    current.addFile("large/A0.pc3");
    const OdString here = found(OD_T("large/A0.pc3"), onPath.path());
    EXPECT_TRUE(fs::equivalent(fs::path(here.view()), fs::path(current.at("large/A0.pc3").view())));
}

TEST(LocalSearch, bareNameIgnoresTheCurrentFolder)
{
    const TemporaryFolder current;
    const CurrentFolder inside(current.path());
    current.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0.pc3"), OdString()), poison);
}

TEST(LocalSearch, theAnswerIsAFullPath)
{
    const TemporaryFolder current;
    const CurrentFolder inside(current.path());
    current.addFile("sub/A0.pc3");
    const OdString path = found(OD_T("A0.pc3"), OD_T("./sub"));
    EXPECT_TRUE(fs::path(path.view()).is_absolute()) << path;
    EXPECT_TRUE(fs::equivalent(fs::path(path.view()), fs::path(current.at("sub/A0.pc3").view())));
}

TEST(LocalSearch, onlyRegularFilesCount)
{
    const TemporaryFolder folder;
    folder.addFolder("A0");
    const OdString file = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), folder.path()), file);

    folder.addFolder("A1.pc3");
    EXPECT_EQ(found(OD_T("A1"), folder.path()), poison);
    EXPECT_EQ(found(folder.at("A1.pc3"), OdString()), poison);
}

TEST(LocalSearch, whatCannotBeANameIsNotFound)
{
    const TemporaryFolder folder;
    folder.addFile("A0.pc3");
    folder.addFile(".pc3");
    EXPECT_EQ(found(OdString(), folder.path()), poison) << "not even .pc3";
    EXPECT_EQ(found(OdString(OD_T("A0.pc3\0x"), 8), folder.path()), poison);
    EXPECT_EQ(found(folder.path() + OD_T("/"), folder.path()), poison);

    const OdChar loneSurrogate[] = {0xD800, 0};
    EXPECT_EQ(found(loneSurrogate, folder.path()), poison);
    EXPECT_EQ(found(OdString(std::basic_string<OdChar>(70000, 'x')), folder.path()), poison);
}

TEST(LocalSearch, emptyAndMissingFoldersAreSkipped)
{
    const TemporaryFolder folder;
    const OdString file = folder.addFile("A0.pc3");
    EXPECT_EQ(found(OD_T("A0"), OD_T(";") + folder.at("missing") + OD_T(";;") + folder.path() + OD_T(";")), file);
    EXPECT_EQ(found(OD_T("A0"), OdString()), poison);
}

TEST(LocalSearch, namesBeyondAsciiAreFound)
{
    const TemporaryFolder folder;
    const OdString file = folder.addFile(fs::path(OdStringView(OD_T("Gro\u00DFformat \u5370\u5237.pc3"))));
    EXPECT_EQ(found(OD_T("Gro\u00DFformat \u5370\u5237"), folder.path()), file);
}

TEST(LocalSearch, withoutPathOfItsOwnItTakesHosts)
{
    const TemporaryFolder folder;
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

TEST(LocalSearch, backgroundSearchSeesOneWholePath)
{
    // Every path the host sets has the file, so a search that mixed two of them would be the only one to miss it.
    const TemporaryFolder first;
    const TemporaryFolder second;
    first.addFile("A0.pc3");
    second.addFile("A0.pc3");
    getMainInternalInterface()->setPlotCfgSearchPath(first.path());

    int misses = 0;
    std::thread background(
        [&misses]
        {
            OdString path;
            for (int i = 0; i < 200; ++i)
                misses += LocalSearch::SearchPC3File(OD_T("A0"), path) ? 0 : 1;
        });
    for (int i = 0; i < 200; ++i)
        getMainInternalInterface()->setPlotCfgSearchPath(i % 2 ? first.path() : second.path());
    background.join();
    EXPECT_EQ(misses, 0);
    getMainInternalInterface()->setPlotCfgSearchPath(OdString());
}
