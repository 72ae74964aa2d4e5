// The lists of keys outside the nodes' tables: none lacks a key or has an obsolete one.
#include "GarmPC3Editor/Model/BlockReader.h"
#include "GarmPC3Editor/Model/StoredKeys.h"
#include "pia_tree/CPIAParser.h"
#include "tests/support/Blocks.h"
#include "tests/support/ConfigurationKeys.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace
{
const std::filesystem::path source = GARM_SOURCE_FOLDER;

// Names of keys and blocks.
std::set<std::string> knownNames()
{
    std::set<std::string> names;
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
        names.insert(odToUtf8(key.key.empty() ? key.block.view().substr(key.block.view().rfind('/') + 1) : key.key));
    for (const OdStringView key : storedDevMode::allKeys)
        names.insert(odToUtf8(key));
    return names;
}

// The words of the fuzz dictionary that could be names.
std::set<std::string> dictionaryNames()
{
    std::set<std::string> names;
    std::ifstream file(source / "fuzz/pc3.dict");
    const std::regex name("\"([A-Za-z]+(_[a-z]+)*)\"");
    std::smatch found;
    for (std::string line; std::getline(file, line);)
        if (std::regex_match(line, found, name))
            names.insert(found[1]);
    return names;
}

std::vector<std::filesystem::path> samples()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(source / "samples"))
        if (entry.path().extension() == ".pc3")
            paths.push_back(entry.path());
    return paths;
}

void expectKnown(const CPBlock& block, const std::string& path, const std::set<std::string>& known)
{
    for (const auto& item : blocks::itemsOf(block))
    {
        const std::string name = path + odToUtf8(item->name());
        EXPECT_TRUE(known.contains(name)) << name;
        if (item->type() == CPItem::eBlock && name != "custom")
            expectKnown(blocks::asBlock(*item), name + "/", known);
    }
}
} // namespace

TEST(KeyLists, theFuzzDictionaryHasEveryName)
{
    std::set<std::string> names = dictionaryNames();
    names.erase("pmzlibcodec"); // a word from the container
    names.erase("nan");         // a number
    EXPECT_EQ(names, knownNames());
}

TEST(KeyLists, theSamplesHaveTheTablesKeysOnly)
{
    std::set<std::string> paths;
    for (const ConfigurationKey& key : ConfigurationKeyList::make())
        paths.insert(odToUtf8(key.path()));
    ASSERT_EQ(samples().size(), 5U);
    for (const auto& sample : samples())
    {
        SCOPED_TRACE(sample.string());
        std::ifstream file(sample, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator(file), {}};
        CPIAParser parser;
        ASSERT_TRUE(parser.parse(bytes)) << parser.reason();
        expectKnown(*parser.root(), "", paths);
        GmPlotCfg3 configuration;
        ReadReport report;
        EXPECT_TRUE(fill(configuration, parser, report)) << report.fault.key;
        EXPECT_TRUE(report.leftOut.empty());
    }
}
