// The fuzzer keeps an input as a finding if the program dies of it, so the first failed expectation ends the program.

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{
class StopAtFailure : public testing::EmptyTestEventListener
{
    void OnTestPartResult(const testing::TestPartResult& result) override
    {
        if (result.failed())
            std::abort();
    }
};
} // namespace

// Called by the fuzzer's engine before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    // After the listener that prints the failure; GoogleTest owns it.
    testing::UnitTest::GetInstance()->listeners().Append(new StopAtFailure);
    return 0;
}
