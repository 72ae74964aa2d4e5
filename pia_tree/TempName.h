#pragma once

#include <atomic>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Names of the temporary files that a write makes: "~gm", the process, "_", a running number, ".tmp". Short, so that it
// fits wherever the target's name does, and never taken for a configuration, which ends in ".pc3".
namespace pia
{
constexpr std::string_view tempNameStart = "~gm";
constexpr std::string_view tempNameEnd = ".tmp";

// Another name with each call.
inline std::string nextTempName(std::uint32_t process)
{
    static std::atomic<std::uint32_t> count{0};
    return std::string(tempNameStart) + std::to_string(process) + '_' + std::to_string(count++) +
           std::string(tempNameEnd);
}

// The process that made such a file; nothing for any other name. No process has the number 0.
inline std::optional<std::uint32_t> processOfTempName(std::string_view name) noexcept
{
    if (!name.starts_with(tempNameStart) || !name.ends_with(tempNameEnd))
        return std::nullopt;
    const char* at = name.data() + tempNameStart.size();
    const char* last = name.data() + name.size() - tempNameEnd.size();

    std::uint32_t process = 0;
    std::uint32_t number = 0;
    const auto middle = std::from_chars(at, last, process);
    if (middle.ec != std::errc() || middle.ptr == last || *middle.ptr != '_')
        return std::nullopt;
    const auto end = std::from_chars(middle.ptr + 1, last, number);
    if (end.ec != std::errc() || end.ptr != last || process == 0)
        return std::nullopt;
    return process;
}
} // namespace pia
