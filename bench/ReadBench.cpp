// From bytes to the fields of a configuration, compared with other parsers; and a whole file, compared with getting its
// bytes.

#include "CountedAllocations.h"
#include "bench/Peers.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPIAParser.h"

#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <pugixml.hpp>
#include <rapidjson/document.h>
#include <simdjson.h>
#include <zlib.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{
using peers::numberFrom;
using peers::wide;

struct PugiSource
{
    pugi::xml_node node;

    bool text(const std::string& key, std::string_view& out)
    {
        const auto child = node.child(key.c_str());
        out = child.child_value();
        return child;
    }
    bool get(const std::string& key, OdString& out)
    {
        std::string_view value;
        if (!text(key, value))
            return false;
        out = wide(value);
        return true;
    }
    bool get(const std::string& key, bool& out)
    {
        const auto child = node.child(key.c_str());
        out = child ? child.text().as_bool() : out;
        return child;
    }
    template <class Number>
    requires(std::is_arithmetic_v<Number>) bool get(const std::string& key, Number& out)
    {
        std::string_view value;
        return text(key, value) && numberFrom(value, out);
    }
    bool get(const std::string& key, PugiSource& out)
    {
        out.node = node.child(key.c_str());
        return out.node;
    }
    bool readCustom(GmCustomNode& custom)
    {
        for (const auto item : node.children())
        {
            const OdString key = wide(item.first_child().child_value());
            const auto value = item.last_child();
            auto& items = value.name() == std::string_view("bin") ? custom.m_binaries : custom.m_numbers;
            items[key] = wide(value.child_value());
        }
        return true;
    }
};

struct RapidSource
{
    const rapidjson::Value* node = nullptr;

    const rapidjson::Value* find(const std::string& key) const
    {
        const auto found = node->FindMember(rapidjson::StringRef(key.data(), key.size()));
        return found == node->MemberEnd() ? nullptr : &found->value;
    }
    static std::string_view view(const rapidjson::Value& value) { return {value.GetString(), value.GetStringLength()}; }

    bool get(const std::string& key, OdString& out)
    {
        const auto* value = find(key);
        if (!value || !value->IsString())
            return false;
        out = wide(view(*value));
        return true;
    }
    bool get(const std::string& key, bool& out)
    {
        const auto* value = find(key);
        if (!value || !value->IsBool())
            return false;
        out = value->GetBool();
        return true;
    }
    bool get(const std::string& key, std::int32_t& out)
    {
        const auto* value = find(key);
        if (!value || !value->IsInt())
            return false;
        out = value->GetInt();
        return true;
    }
    bool get(const std::string& key, double& out)
    {
        const auto* value = find(key);
        if (!value || !value->IsNumber())
            return false;
        out = value->GetDouble();
        return true;
    }
    bool get(const std::string& key, RapidSource& out)
    {
        out.node = find(key);
        return out.node && out.node->IsObject();
    }
    bool readCustom(GmCustomNode& custom)
    {
        for (const auto& item : node->GetObject())
        {
            const auto first = item.value.MemberBegin();
            const auto second = first + 1;
            const OdString key = wide(view(first->value));
            if (second->value.IsString())
                custom.m_binaries[key] = wide(view(second->value));
            else
                custom.m_numbers[key] = wide(std::to_string(second->value.GetInt()));
        }
        return true;
    }
};

struct SimdSource
{
    simdjson::ondemand::object node;

    template <class Json>
    bool take(const std::string& key, Json& out)
    {
        return node[key].get(out) == simdjson::SUCCESS;
    }
    bool get(const std::string& key, OdString& out)
    {
        std::string_view value;
        if (!take(key, value))
            return false;
        out = wide(value);
        return true;
    }
    bool get(const std::string& key, bool& out) { return take(key, out); }
    bool get(const std::string& key, double& out) { return take(key, out); }
    bool get(const std::string& key, std::int32_t& out)
    {
        std::int64_t value = 0;
        if (!take(key, value) || value < INT32_MIN || value > INT32_MAX)
            return false;
        out = static_cast<std::int32_t>(value);
        return true;
    }
    bool get(const std::string& key, SimdSource& out) { return take(key, out.node); }
    bool readCustom(GmCustomNode& custom)
    {
        for (auto item : node)
        {
            simdjson::ondemand::object pair;
            if (item.value().get(pair) != simdjson::SUCCESS)
                return false;
            OdString key;
            for (auto field : pair)
            {
                const std::string_view name = field.unescaped_key();
                std::string_view text;
                if (name == "value")
                    custom.m_numbers[key] = wide(field.value().raw_json_token());
                else if (field.value().get(text) == simdjson::SUCCESS)
                    (name == "bin" ? custom.m_binaries[key] : key) = wide(text);
            }
        }
        return true;
    }
};

const Sample& sampleOf(const benchmark::State& state)
{
    return state.range(0) ? largeSample() : smallSample();
}

void mustBe(bool condition)
{
    if (!condition)
        std::abort();
}

// The result must be the configuration that went in.
void mustBeRead(const OpenPlotCfg& read, const Sample& sample)
{
    CPBlock tree(OD_T(""));
    std::string file;
    mustBe(read.writeToBlock(tree));
    mustBe(CPIAOutput().writeToMemory(tree, file));
    mustBe(file == sample.file);
}

bool initFrom(CPIAParser& parser, OpenPlotCfg& out)
{
    bool modified = false;
    return out.init(parser, modified);
}

// Measures read(sample, configuration).
template <class Read>
void measure(benchmark::State& state, Read read)
{
    const Sample& sample = sampleOf(state);
    OpenPlotCfg check;
    mustBe(read(sample, check));
    mustBeRead(check, sample);

    const std::size_t before = countedAllocations();
    std::size_t rounds = 0;
    for (auto _ : state)
    {
        OpenPlotCfg configuration;
        mustBe(read(sample, configuration));
        benchmark::DoNotOptimize(configuration);
        ++rounds;
    }
    state.counters["allocations"] = static_cast<double>(countedAllocations() - before) / static_cast<double>(rounds);
}

void parseAndInit(benchmark::State& state)
{
    // The text after inflation, in memory, as the peers have theirs.
    const std::string plain = "PIAFILEVERSION_2.0,PC3VER1\n" + sampleOf(state).text;
    measure(state,
            [&plain](const Sample&, OpenPlotCfg& out)
            {
                CPIAParser parser;
                return parser.parse(plain) && initFrom(parser, out);
            });
}

void parseOnly(benchmark::State& state)
{
    const std::string plain = "PIAFILEVERSION_2.0,PC3VER1\n" + sampleOf(state).text;
    for (auto _ : state)
    {
        CPIAParser parser;
        mustBe(parser.parse(plain));
        benchmark::DoNotOptimize(parser.root());
    }
}

void parseAndInitPugixml(benchmark::State& state)
{
    measure(state,
            [](const Sample& sample, OpenPlotCfg& out)
            {
                pugi::xml_document document;
                return document.load_buffer(sample.xml.data(), sample.xml.size()) &&
                       peers::readConfiguration<PugiSource>({document.first_child()}, out);
            });
}

void parseAndInitRapidJson(benchmark::State& state)
{
    measure(state,
            [](const Sample& sample, OpenPlotCfg& out)
            {
                rapidjson::Document document;
                document.Parse(sample.json.data(), sample.json.size());
                return !document.HasParseError() && peers::readConfiguration<RapidSource>({&document}, out);
            });
}

void parseAndInitSimdjson(benchmark::State& state)
{
    // It expects its input padded and its parser kept; both are how its authors measure it.
    const simdjson::padded_string padded(sampleOf(state).json);
    simdjson::ondemand::parser parser;
    measure(state,
            [&](const Sample&, OpenPlotCfg& out)
            {
                simdjson::ondemand::document document;
                SimdSource root;
                return parser.iterate(padded).get(document) == simdjson::SUCCESS &&
                       document.get_object().get(root.node) == simdjson::SUCCESS &&
                       peers::readConfiguration<SimdSource>(root, out);
            });
}

// A file with the sample, for the object's lifetime.
class SampleFile
{
public:
    explicit SampleFile(const Sample& sample)
        : m_path(std::filesystem::temp_directory_path() / ("garm-bench-" + std::to_string(::getpid()) + ".pc3"))
    {
        std::ofstream(m_path, std::ios::binary) << sample.file;
    }
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;
    ~SampleFile() { std::filesystem::remove(m_path); }

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// The text of a file, read as directly as possible: two buffers of the right size, one call each.
template <class Inflate>
void floorOf(benchmark::State& state, Inflate inflateStream)
{
    const Sample& sample = sampleOf(state);
    const SampleFile file(sample);
    const std::string name = file.path().string();
    constexpr std::size_t streamAt = 37 + 23;
    for (auto _ : state)
    {
        const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat status = {};
        ::fstat(descriptor, &status);
        const auto size = static_cast<std::size_t>(status.st_size);
        const std::unique_ptr<char[]> bytes(new char[size]);
        mustBe(::read(descriptor, bytes.get(), size) == status.st_size);
        ::close(descriptor);
        const std::unique_ptr<char[]> text(new char[sample.text.size()]);
        mustBe(inflateStream(bytes.get() + streamAt, size - streamAt, text.get(), sample.text.size()));
        benchmark::DoNotOptimize(text.get());
    }
}

void readFileFloorZlib(benchmark::State& state)
{
    floorOf(state,
            [](const char* in, std::size_t inSize, char* out, std::size_t outSize)
            {
                uLongf length = outSize;
                return uncompress(reinterpret_cast<Bytef*>(out), &length, reinterpret_cast<const Bytef*>(in), inSize) ==
                       Z_OK;
            });
}

void readFileFloorLibdeflate(benchmark::State& state)
{
    libdeflate_decompressor* codec = libdeflate_alloc_decompressor();
    floorOf(state, [codec](const char* in, std::size_t inSize, char* out, std::size_t outSize)
            { return libdeflate_zlib_decompress(codec, in, inSize, out, outSize, nullptr) == LIBDEFLATE_SUCCESS; });
    libdeflate_free_decompressor(codec);
}

void readFile(benchmark::State& state)
{
    const Sample& sample = sampleOf(state);
    const SampleFile file(sample);
    const OdString name(file.path().string<OdChar>());
    const std::size_t before = countedAllocations();
    std::size_t rounds = 0;
    for (auto _ : state)
    {
        CPIAParser parser;
        mustBe(parser.read(name.c_str()));
        benchmark::DoNotOptimize(parser.root());
        ++rounds;
    }
    state.counters["allocations"] = static_cast<double>(countedAllocations() - before) / static_cast<double>(rounds);
}

void readFileAndInit(benchmark::State& state)
{
    const Sample& sample = sampleOf(state);
    const SampleFile file(sample);
    const OdString name(file.path().string<OdChar>());
    measure(state,
            [&name](const Sample&, OpenPlotCfg& out)
            {
                CPIAParser parser;
                return parser.read(name.c_str()) && initFrom(parser, out);
            });
}

void bothSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("large")->Arg(0)->Arg(1);
}

BENCHMARK(parseOnly)->Apply(bothSizes);
BENCHMARK(parseAndInit)->Apply(bothSizes);
BENCHMARK(parseAndInitSimdjson)->Apply(bothSizes);
BENCHMARK(parseAndInitPugixml)->Apply(bothSizes);
BENCHMARK(parseAndInitRapidJson)->Apply(bothSizes);
BENCHMARK(readFile)->Apply(bothSizes);
BENCHMARK(readFileAndInit)->Apply(bothSizes);
BENCHMARK(readFileFloorZlib)->Apply(bothSizes);
BENCHMARK(readFileFloorLibdeflate)->Apply(bothSizes);
} // namespace
