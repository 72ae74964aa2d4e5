// From a tree to its text, and to the bytes of its file, without the disk.

#include "bench/Samples.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/TextWriter.h"

#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <pugixml.hpp>
#include <zlib.h>

#include <cstdlib>

namespace
{
const Sample& sampleOf(const benchmark::State& state)
{
    return state.range(0) ? largeSample() : smallSample();
}

void treeToText(benchmark::State& state)
{
    const Sample& sample = sampleOf(state);
    for (auto _ : state)
    {
        files::ByteBuffer text;
        if (pia::writeText(*sample.tree, text) || text.size() != sample.text.size())
            std::abort();
        benchmark::DoNotOptimize(text.data());
    }
}

void treeToTextPugixml(benchmark::State& state)
{
    struct Writer : pugi::xml_writer
    {
        std::string text;
        void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
    };
    const Sample& sample = sampleOf(state);
    pugi::xml_document document;
    document.load_buffer(sample.xml.data(), sample.xml.size());
    for (auto _ : state)
    {
        Writer writer;
        document.save(writer, "", pugi::format_raw | pugi::format_no_declaration);
        if (writer.text.size() != sample.xml.size())
            std::abort();
        benchmark::DoNotOptimize(writer.text.data());
    }
}

void treeToFile(benchmark::State& state)
{
    const Sample& sample = sampleOf(state);
    std::string file;
    for (auto _ : state)
    {
        if (!CPIAOutput().writeToMemory(*sample.tree, file))
            std::abort();
        benchmark::DoNotOptimize(file.data());
    }
}

void deflateTextZlib(benchmark::State& state)
{
    const std::string& text = sampleOf(state).text;
    std::string out(compressBound(text.size()), '\0');
    for (auto _ : state)
    {
        uLongf size = out.size();
        if (compress(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
                     text.size()) != Z_OK)
            std::abort();
    }
}

void deflateTextLibdeflate(benchmark::State& state)
{
    const std::string& text = sampleOf(state).text;
    constexpr int level = 6;
    libdeflate_compressor* codec = libdeflate_alloc_compressor(level);
    std::string out(libdeflate_zlib_compress_bound(codec, text.size()), '\0');
    for (auto _ : state)
        if (!libdeflate_zlib_compress(codec, text.data(), text.size(), out.data(), out.size()))
            std::abort();
    libdeflate_free_compressor(codec);
}

void bothSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("large")->Arg(0)->Arg(1);
}

BENCHMARK(treeToText)->Apply(bothSizes);
BENCHMARK(treeToTextPugixml)->Apply(bothSizes);
BENCHMARK(treeToFile)->Apply(bothSizes);
BENCHMARK(deflateTextZlib)->Apply(bothSizes);
BENCHMARK(deflateTextLibdeflate)->Apply(bothSizes);
} // namespace
