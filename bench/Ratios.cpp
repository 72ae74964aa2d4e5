// Runs the benchmarks and prints what they are for: ratios, which depend on the machine less than times do.

#include "Samples.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace
{
// Shows the usual table and keeps the medians.
class Medians : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            // Without repetitions each run is its own median.
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")
                continue;
            const std::string name = run.run_name.function_name + "/" + run.run_name.args;
            m_times[name] = run.GetAdjustedCPUTime();
            if (const auto found = run.counters.find("allocations"); found != run.counters.end())
                m_allocations[name] = found->second.value;
        }
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
    std::map<std::string, double> m_times;
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
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);

    std::printf("\n%-46s%10s%10s\n", "ratio of processor times (below 1: we are faster)", "small", "large");
    medians.print("parse and init : simdjson on-demand", "parseAndInit", "parseAndInitSimdjson");
    medians.print("parse and init : pugixml", "parseAndInit", "parseAndInitPugixml");
    medians.print("parse and init : RapidJSON", "parseAndInit", "parseAndInitRapidJson");
    medians.print("whole file read : open + read + zlib inflate", "readFile", "readFileFloorZlib");
    medians.print("whole file read : the same with libdeflate", "readFile", "readFileFloorLibdeflate");
    medians.print("file read and init : open + read + zlib", "readFileAndInit", "readFileFloorZlib");
    medians.print("tree to text : pugixml", "treeToText", "treeToTextPugixml");
    medians.print("tree to file bytes : zlib deflate alone", "treeToFile", "deflateTextZlib");
    medians.print("tree to file bytes : libdeflate alone", "treeToFile", "deflateTextLibdeflate");
    std::printf("\n%-46s%10s%10s\n", "allocations", "small", "large");
    medians.printAllocations("file read", "readFile");
    medians.printAllocations("parse and init", "parseAndInit");
    medians.printAllocations("parse and init, simdjson on-demand", "parseAndInitSimdjson");
    return 0;
}
