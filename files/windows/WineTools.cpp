#include "files/windows/WineTools.h"

#include "files/windows/File.h"
#include "files/windows/FileIo.h"

#include <windows.h>

#include <initializer_list>
#include <memory>
#include <vector>

namespace files::wine
{
namespace
{
// From Wine's own libraries: runs a Unix program, and converts file names between the two systems.
using SpawnUnix = LONG(__cdecl*)(char* const* arguments, int wait);
using ToUnixName = char*(__cdecl*)(const wchar_t* path);
using FromUnixName = wchar_t*(__cdecl*)(const char* path);

template <class Function>
Function wineFunction(const wchar_t* library, const char* name) noexcept
{
    const HMODULE module = ::GetModuleHandleW(library);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name))) : nullptr;
}

SpawnUnix spawnUnix() noexcept
{
    return wineFunction<SpawnUnix>(L"ntdll.dll", "__wine_unix_spawnvp");
}

struct FreeOnHeap
{
    void operator()(void* text) const noexcept { ::HeapFree(::GetProcessHeap(), 0, text); }
};

// Empty if the file has no name on the Unix side.
std::string unixName(const std::wstring& path)
{
    const auto convert = wineFunction<ToUnixName>(L"kernel32.dll", "wine_get_unix_file_name");
    const std::unique_ptr<char, FreeOnHeap> name(convert ? convert(path.c_str()) : nullptr);
    return name ? name.get() : "";
}

std::wstring windowsName(const std::string& unixPath)
{
    const auto convert = wineFunction<FromUnixName>(L"kernel32.dll", "wine_get_dos_file_name");
    const std::unique_ptr<wchar_t, FreeOnHeap> name(convert ? convert(unixPath.c_str()) : nullptr);
    return name ? name.get() : L"";
}

// Runs a script with the paths as $1, $2, ..., silently. Returns its exit status, or -1 if it could not be run.
int run(const char* script, std::initializer_list<std::wstring> paths)
{
    const SpawnUnix spawn = spawnUnix();
    if (!spawn)
        return -1;
    std::vector<std::string> words{"/bin/sh", "-c", std::string("exec 2>/dev/null; ") + script, "sh"};
    words.reserve(words.size() + paths.size());
    for (const std::wstring& path : paths)
    {
        words.push_back(unixName(path));
        if (words.back().empty())
            return -1;
    }
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    // A system error is a status far above any program's.
    const LONG status = spawn(arguments.data(), TRUE);
    return status >= 0 && status <= 255 ? static_cast<int>(status) : -1;
}

// Times are not copied, because the content is new. cp does not always report what it could not copy.
constexpr auto giveRightsScript = R"sh(
rights() { stat -c '%a %u %g' -- "$1"; }
cp --attributes-only --preserve=mode,ownership,xattr -- "$2" "$1" && [ "$(rights "$1")" = "$(rights "$2")" ] && exit 0
chmod 600 -- "$1"
exit 1)sh";
} // namespace

bool hasTools() noexcept
{
    return spawnUnix() != nullptr;
}

bool makePrivate(const std::wstring& path)
{
    return run(R"(umask 077; set -C; : > "$1")", {path}) == 0;
}

bool giveRights(const std::wstring& path, const std::wstring& other)
{
    return run(giveRightsScript, {path, other}) == 0;
}

std::optional<std::wstring> endOfLink(const std::wstring& path)
{
    if (run(R"([ -L "$1" ])", {path}) != 0)
        return std::nullopt;
    // A tool's output can only be read from a file.
    wchar_t folder[MAX_PATH + 1] = {};
    wchar_t answer[MAX_PATH + 1] = {};
    if (!::GetTempPathW(MAX_PATH, folder) || !::GetTempFileNameW(folder, L"gm", 0, answer))
        return std::wstring();
    std::string end;
    if (run(R"(readlink -n -f -- "$1" > "$2")", {path, answer}) == 0)
    {
        ByteBuffer bytes;
        const File file(openShared(answer, GENERIC_READ));
        if (file && !readAll(file.get(), bytes))
            end = bytes.view();
    }
    ::DeleteFileW(answer);
    return end.empty() ? std::wstring() : windowsName(end);
}

bool rename(const std::wstring& from, const std::wstring& to)
{
    return run(R"(mv -fT -- "$1" "$2")", {from, to}) == 0;
}
} // namespace files::wine
