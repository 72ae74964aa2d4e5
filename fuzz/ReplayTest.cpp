// Replays the kept inputs of one target: the seeds, and every input that was once a finding.

#include "fuzz/FuzzTarget.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace
{
// Returns how many there were.
int replay(const std::filesystem::path& folder)
{
    int count = 0;
    std::error_code missing; // a target without findings has no folder of regressions
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing))
    {
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        // In memory of exactly its length, so that a read past its end is caught.
        const auto exact = std::make_unique<std::uint8_t[]>(bytes.size());
        std::copy(bytes.begin(), bytes.end(), exact.get());
        EXPECT_EQ(LLVMFuzzerTestOneInput(exact.get(), bytes.size()), 0);
        ++count;
    }
    return count;
}
} // namespace

TEST(Replay, seeds)
{
    EXPECT_GT(replay(GARM_FUZZ_SEEDS), 0);
}

TEST(Replay, regressions)
{
    EXPECT_GE(replay(GARM_FUZZ_REGRESSIONS), 0);
}
