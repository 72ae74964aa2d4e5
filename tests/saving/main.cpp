// save_writer: writes the files with which tests interrupt, starve and check saving. The content of each file follows
// from a number in it, so it is obvious whether a file is complete.
//
//   save_writer loop FOLDER N    writes files with the numbers N, N + 1, ... until it is killed; prints "start N NAME"
//                                and "done N" around each write
//   save_writer save N FILE...   writes each file once with that number, and prints "saved" or the reason
//   save_writer check FOLDER     prints "NAME N" or "NAME damaged" for each configuration in the folder
//   save_writer write FILE N M   writes the file M times with the numbers N, N + 2, ..., and prints "M, 0 refused"
//   save_writer read FILE STOP   reads the file until a file STOP exists, and prints "M, 0 refused"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "kernel/OdText.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPIAParser.h"
#include "tests/support/Blocks.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace
{
namespace fs = std::filesystem;

OdString textOf(const std::string& utf8)
{
    return OdString(odFromUtf8(utf8));
}

// From a few bytes to a megabyte, so that it takes one or many write calls.
OdString filling(unsigned number)
{
    const std::size_t length = std::size_t{1} << (number * 8 % 21);
    const std::string word = std::to_string(number) + ' ';
    std::string text;
    while (text.size() < length)
        text += word;
    return textOf(text);
}

// Even numbers: a plain tree, which is fast to create and slow to write.
bool isTree(unsigned number)
{
    return number % 2 == 0;
}

const char* saveTree(unsigned number, const OdString& path)
{
    const auto root = blocks::make(OD_T(""), {blocks::num(OD_T("number"), textOf(std::to_string(number))),
                                              blocks::str(OD_T("filling"), filling(number))});
    CPIAOutput output;
    return output.write(*root, path.c_str(), pia::Form::plain) ? "saved" : output.reason();
}

// Odd numbers: a configuration, saved like in the editor.
const char* saveConfiguration(unsigned number, const OdString& path)
{
    GmPlotCfg3 configuration;
    configuration.m_media.m_number_of_copies = static_cast<std::int32_t>(number);
    configuration.m_meta.m_config_description = filling(number);
    return configuration.write(path) ? "saved" : "not saved";
}

const char* save(unsigned number, const OdString& path)
{
    return isTree(number) ? saveTree(number, path) : saveConfiguration(number, path);
}

// The number in a complete file; 0 if the file is damaged.
unsigned numberOf(const OdString& path)
{
    std::int32_t number = 0;
    OdString text;
    CPIAParser parser;
    if (parser.read(path.c_str()) && parser.root()->getInt(number, OD_T("number")))
    {
        if (!parser.root()->getStr(text, OD_T("filling")))
            return 0;
    }
    else
    {
        bool modified = false;
        const auto configuration = GmPlotCfg3::read(path, modified);
        if (!configuration)
            return 0;
        number = configuration->m_media.m_number_of_copies;
        text = configuration->m_meta.m_config_description;
    }
    const auto whole = static_cast<unsigned>(number);
    return number > 0 && text == filling(whole) ? whole : 0;
}

int loop(const fs::path& folder, unsigned first)
{
    for (unsigned number = first;; ++number)
    {
        const std::string name = "c" + std::to_string(number % 4) + ".pc3";
        std::printf("start %u %s\n", number, name.c_str());
        std::fflush(stdout);
        const char* result = save(number, textOf((folder / name).string()));
        if (result != std::string("saved"))
        {
            std::printf("failed %u %s\n", number, result);
            return 1;
        }
        std::printf("done %u\n", number);
        std::fflush(stdout);
    }
}

int saveEach(const std::vector<std::string>& arguments)
{
    const auto number = static_cast<unsigned>(std::stoul(arguments.at(1)));
    for (std::size_t i = 2; i < arguments.size(); ++i)
        std::printf("%s\n", save(number, textOf(arguments[i])));
    return 0;
}

int check(const fs::path& folder)
{
    std::vector<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".pc3")
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths)
    {
        const unsigned number = numberOf(textOf(path.string()));
        std::printf("%s %s\n", path.filename().string().c_str(), number ? std::to_string(number).c_str() : "damaged");
    }
    return 0;
}

// Counts calls and the reasons of those that failed.
class Refusals
{
public:
    void count(const std::string& reason)
    {
        ++m_calls;
        if (!reason.empty())
            ++m_refused[reason];
    }

    int report() const
    {
        std::size_t all = 0;
        for (const auto& [reason, times] : m_refused)
            all += times;
        std::printf("%zu, %zu refused\n", m_calls, all);
        for (const auto& [reason, times] : m_refused)
            std::printf("%zu: %s\n", times, reason.c_str());
        return 0;
    }

private:
    std::size_t m_calls = 0;
    std::map<std::string, std::size_t> m_refused;
};

int writeAgain(const std::string& file, unsigned first, unsigned times)
{
    Refusals refusals;
    for (unsigned i = 0; i < times; ++i)
    {
        const std::string result = saveTree(first + 2 * i, textOf(file));
        refusals.count(result == "saved" ? "" : result);
    }
    return refusals.report();
}

int readUntil(const std::string& file, const fs::path& stop)
{
    Refusals refusals;
    while (!fs::exists(stop))
    {
        CPIAParser parser;
        std::int32_t number = 0;
        OdString text;
        if (!parser.read(textOf(file).c_str()))
            refusals.count(parser.reason());
        else if (!parser.root()->getInt(number, OD_T("number")) || !parser.root()->getStr(text, OD_T("filling")) ||
                 text != filling(static_cast<unsigned>(number)))
            refusals.count("torn");
        else
            refusals.count("");
    }
    return refusals.report();
}
} // namespace

int main(int count, char** values)
{
    const std::vector<std::string> arguments(values + 1, values + count);
    if (arguments.size() == 3 && arguments[0] == "loop")
        return loop(arguments[1], static_cast<unsigned>(std::stoul(arguments[2])));
    if (arguments.size() >= 3 && arguments[0] == "save")
        return saveEach(arguments);
    if (arguments.size() == 2 && arguments[0] == "check")
        return check(arguments[1]);
    if (arguments.size() == 4 && arguments[0] == "write")
        return writeAgain(arguments[1], static_cast<unsigned>(std::stoul(arguments[2])),
                          static_cast<unsigned>(std::stoul(arguments[3])));
    if (arguments.size() == 3 && arguments[0] == "read")
        return readUntil(arguments[1], arguments[2]);
    return 2;
}
