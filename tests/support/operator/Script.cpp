#include "tests/support/operator/Script.h"

#include "kernel/OdText.h"

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace editordriver
{
std::vector<ScriptLine> readScript(const OdString& path)
{
    std::ifstream file(path.c_str());
    if (!file)
        throw std::runtime_error("the script '" + odToUtf8(path) + "' cannot be read");
    std::vector<ScriptLine> lines;
    std::string line;
    for (std::size_t number = 1; std::getline(file, line); ++number)
    {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        std::string verb = takeWord(line);
        if (!verb.empty() && verb.front() != '#')
            lines.push_back({number, std::move(verb), std::move(line)});
    }
    return lines;
}

std::string takeWord(std::string& text)
{
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string::npos)
    {
        text.clear();
        return {};
    }
    const std::size_t end = text.find(' ', begin);
    std::string word = text.substr(begin, end == std::string::npos ? end : end - begin);
    text = end == std::string::npos ? std::string() : text.substr(end + 1);
    return word;
}

int numberOf(const std::string& word)
{
    int number = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || stop != end)
        throw std::runtime_error("'" + word + "' is no number");
    return number;
}
} // namespace editordriver
