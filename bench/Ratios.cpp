// Runs the benchmarks and prints ratios, which depend less on the machine than times do.

#include "bench/Samples.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace
{
// Keeps the fastest repetition: other work on the machine can only add to a time.
class Fastest : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
        {
            if (run.run_type != Run::RT_Iteration)
                continue;
            const std::string name = run.run_name.function_name + "/" + run.run_name.args;
            const double time = run.GetAdjustedCPUTime();
            const auto [found, isNew] = m_times.try_emplace(name, time);
            found->second = std::min(found->second, time);
            if (const auto counter = run.counters.find("allocations"); counter != run.counters.end())
                m_allocations[name] = counter->second.value;
        }
    }

    void printTimes() const
    {
        for (const auto& [name, time] : m_times)
            std::printf("%-46s%10.1f us\n", name.c_str(), time / 1000.0);
    }

    void print(const char* what, const char* ours, const char* theirs) const
    {
        std::printf("%-46s", what);
        for (const char* size : {"/large:0", "/large:1"})
        {
            const auto our = m_times.find(std::string(ours) + size);
            const auto their = m_times.find(std::string(theirs) + size);
            if (our == m_times.end() || their == m_times.end())
                std::printf("%10s", "-");
            else
                std::printf("%10.2f", our->second / their->second);
        }
        std::printf("\n");
    }

    void printAllocations(const char* what, const char* name) const
    {
        std::printf("%-46s", what);
        for (const char* size : {"/large:0", "/large:1"})
        {
            const auto found = m_allocations.find(std::string(name) + size);
            if (found == m_allocations.end())
                std::printf("%10s", "-");
            else
                std::printf("%10.0f", found->second);
        }
        std::printf("\n");
    }

private:
    std::map<std::string, double> m_times; // nanoseconds
    std::map<std::string, double> m_allocations;
};
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    std::printf("small: %zu bytes of text, %zu in the file; large: %zu and %zu\n", smallSample().text.size(),
                smallSample().file.size(), largeSample().text.size(), largeSample().file.size());
    Fastest fastest;
    benchmark::RunSpecifiedBenchmarks(&fastest);
    fastest.printTimes();

    std::printf("\n%-46s%10s%10s\n", "ratio of processor times (below 1: we are faster)", "small", "large");
    fastest.print("parse and init : simdjson on-demand", "parseAndInit", "parseAndInitSimdjson");
    fastest.print("parse and init : pugixml", "parseAndInit", "parseAndInitPugixml");
    fastest.print("parse and init : RapidJSON", "parseAndInit", "parseAndInitRapidJson");
    fastest.print("whole file read : open + read + zlib inflate", "readFile", "readFileFloorZlib");
    fastest.print("whole file read : the same with libdeflate", "readFile", "readFileFloorLibdeflate");
    fastest.print("file read and init : open + read + zlib", "readFileAndInit", "readFileFloorZlib");
    fastest.print("tree to text : pugixml", "treeToText", "treeToTextPugixml");
    fastest.print("tree to file bytes : zlib deflate alone", "treeToFile", "deflateTextZlib");
    fastest.print("tree to file bytes : libdeflate alone", "treeToFile", "deflateTextLibdeflate");
    std::printf("\n%-46s%10s%10s\n", "allocations", "small", "large");
    fastest.printAllocations("file read", "readFile");
    fastest.printAllocations("parse and init", "parseAndInit");
    fastest.printAllocations("parse and init, simdjson on-demand", "parseAndInitSimdjson");
    return 0;
}
