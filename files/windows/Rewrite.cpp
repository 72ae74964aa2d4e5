#include "files/windows/Rewrite.h"

#include "files/Patience.h"
#include "files/TempName.h"

namespace files
{
namespace
{
bool put(const File& file, std::string_view bytes) noexcept
{
    return ::SetFilePointerEx(file.get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN) && writeAll(file.get(), bytes) &&
           ::SetEndOfFile(file.get()) && ::FlushFileBuffers(file.get());
}

// Exclusively, so that no program reads half of the old and half of the new content.
const char* openTarget(const std::wstring& path, File& file, ByteBuffer& old)
{
    Patience patience;
    for (;;)
    {
        file = File(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        if (file)
            return readAll(file.get(), old);
        const DWORD error = ::GetLastError();
        if (!isBusy(error) || !patience.again())
            return reasonOf(error, cannotWrite);
    }
}

bool takeSpareName(TempFile& temp, const std::wstring& spare) noexcept
{
    Patience patience;
    while (!temp.takeFreeName(spare))
        if ((::GetLastError() != ERROR_ALREADY_EXISTS && ::GetLastError() != ERROR_FILE_EXISTS) || !patience.again())
            return false;
    return true;
}
} // namespace

const char* rewriteInPlace(const Target& target, TempFile& temp, std::string_view bytes)
{
    const std::wstring spare = target.path + std::wstring(spareNameEnd.begin(), spareNameEnd.end());
    // Two writers cannot both create the spare name, so neither overwrites the other's work.
    if (!takeSpareName(temp, spare))
    {
        const DWORD error = ::GetLastError();
        return error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS
                   ? "a file with the same name and \".new\" is in the way"
                   : reasonOf(error, cannotWrite);
    }
    File file;
    ByteBuffer old;
    const char* reason = openTarget(target.path, file, old);
    if (!reason && !put(file, bytes))
    {
        reason = reasonOf(::GetLastError(), cannotWrite);
        if (!put(file, old.view()))
            return "the file is damaged; its new content is in the file of the same name and \".new\"";
    }
    file.close();
    ::DeleteFileW(spare.c_str());
    return reason;
}
} // namespace files
