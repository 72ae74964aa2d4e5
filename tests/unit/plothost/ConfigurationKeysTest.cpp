#include "plothost/ConfigurationKeys.h"

#include <gtest/gtest.h>

#include "SampleTree.h"

using namespace plothost;

namespace
{
OdString pathOf(const ConfigurationBlock& block, const ConfigurationKey& key)
{
    return OdString(block.path) + OD_T("/") + key.name;
}

const CPBlock* findBlock(const CPBlock& root, OdStringView path)
{
    const CPBlock* at = &root;
    while (at && !path.empty())
    {
        const std::size_t slash = std::min(path.find('/'), path.size());
        const OdSharedPtr<CPItem> found = at->find(path.substr(0, slash), CPItem::eBlock);
        at = static_cast<const CPBlock*>(found.get()); // the tree keeps it
        path.remove_prefix(std::min(slash + 1, path.size()));
    }
    return at;
}

// Whether the model itself reads the four blocks.
bool modelReads(const CPBlock& root)
{
    GmPlotCfg3 read;
    const auto block = [&root](OdStringView name) -> const CPBlock& { return *findBlock(root, name); };
    return read.m_meta.init(block(OD_T("meta"))) && read.m_media.init(block(OD_T("media"))) &&
           read.m_io.init(block(OD_T("io"))) && read.m_res_color_mem.init(block(OD_T("res_color_mem")));
}
} // namespace

TEST(ConfigurationKeys, areTheOnesThatTheModelWritesWithTheSameValues)
{
    const GmPlotCfg3 configuration = sample::configuration();
    const OdSharedPtr<CPBlock> root = sample::tree(configuration);
    for (const ConfigurationBlock& block : configurationBlocks())
    {
        const CPBlock* written = findBlock(*root, block.path);
        ASSERT_NE(written, nullptr) << odToUtf8(block.path);
        unsigned index = 0;
        for (const ConfigurationKey& key : block.keys)
        {
            const OdSharedPtr<CPItem> item = written->data(index++);
            ASSERT_TRUE(item) << odToUtf8(key.name);
            EXPECT_EQ(item->name(), OdString(key.name)) << "the order is that of the file";
            EXPECT_EQ(item->type(), key.kind) << odToUtf8(key.name);
            const KeyValue value = key.value(configuration);
            OdString text;
            std::int32_t whole = 0;
            double number = 0;
            bool flag = false;
            if (key.kind == CPItem::eStr)
                EXPECT_TRUE(written->getStr(text, key.name) && value == KeyValue(text)) << odToUtf8(key.name);
            else if (key.kind == CPItem::eBool)
                EXPECT_TRUE(written->getBool(flag, key.name) && value == KeyValue(flag)) << odToUtf8(key.name);
            else if (key.isInteger)
                EXPECT_TRUE(written->getInt(whole, key.name) && value == KeyValue(whole)) << odToUtf8(key.name);
            else
                EXPECT_TRUE(written->getDbl(number, key.name) && value == KeyValue(number)) << odToUtf8(key.name);
        }
        // What follows are the blocks inside.
        for (; index < written->size(); ++index)
            EXPECT_EQ(written->data(index)->type(), CPItem::eBlock) << odToUtf8(written->data(index)->name());
    }
}

TEST(ConfigurationKeys, areRequiredWhenTheModelCannotReadWithoutThem)
{
    const OdSharedPtr<CPBlock> root = sample::tree(sample::configuration());
    ASSERT_TRUE(modelReads(*root));
    for (const ConfigurationBlock& block : configurationBlocks())
        for (const ConfigurationKey& key : block.keys)
        {
            const OdString path = pathOf(block, key);
            EXPECT_EQ(modelReads(*sample::with(*root, path, nullptr)), !(key.isRequired && block.isRequired)) << path;
        }
}

TEST(ConfigurationKeys, anAbsentFlagHasNoValue)
{
    const GmPlotCfg3 fresh;
    unsigned absent = 0;
    for (const ConfigurationBlock& block : configurationBlocks())
        for (const ConfigurationKey& key : block.keys)
            if (block.isRequired && std::holds_alternative<std::monostate>(key.value(fresh)))
                ++absent;
    EXPECT_EQ(absent, 3U) << "default_system_cfg, lines_overwrite, color_mono";
}
