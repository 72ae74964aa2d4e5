#include "fuzz/FileInput.h"

#include "tests/unit/pia/TreeTools.h"

namespace
{
std::string repeated(std::string_view text, std::size_t times)
{
    constexpr std::size_t most = 16U << 10U;
    std::string all;
    for (std::size_t i = 0; i < times && all.size() + text.size() <= most; ++i)
        all += text;
    return all;
}
} // namespace

std::string fileFrom(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.empty())
        return {};
    constexpr std::size_t numbers = 12;
    switch (input[0])
    {
    case 'p':
        return plainFile(input.substr(1));
    case 'c':
        return compressedFile(input.substr(1));
    case 'r':
        return size < 2 ? std::string(input) : compressedFile(repeated(input.substr(2), std::size_t{16} * data[1]));
    case 's':
        if (size < 1 + numbers)
            return std::string(input);
        return std::string(compressedFirstLine) + "pmzlibcodec" + std::string(input.substr(1, numbers)) +
               zlibStream(input.substr(1 + numbers));
    default:
        return std::string(input);
    }
}
