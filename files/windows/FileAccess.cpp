#include "files/FileAccess.h"

#include "files/windows/Rewrite.h"
#include "files/windows/TempFile.h"

#include <windows.h>

namespace files
{
const char* readFile(const OdChar* path, ByteBuffer& bytes)
{
    const std::wstring name = path && *path ? absolutePath(OdString(path)) : std::wstring();
    if (name.empty())
        return "that is not a valid file name";
    const File file(openShared(name, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN));
    return file ? readAll(file.get(), bytes) : reasonOf(::GetLastError(), "the file cannot be opened");
}

const char* replaceFile(const OdChar* path, std::string_view bytes)
{
    if (!path || !*path)
        return "that is not a valid file name";
    Target target;
    if (const char* reason = findTarget(path, target))
        return reason;

    TempFile temp(target);
    if (!temp.file())
        return reasonOf(::GetLastError(), cannotWrite);
    removeStaleFiles(target.folder(), temp.file());
    if (!writeAll(temp.file().get(), bytes) || !::FlushFileBuffers(temp.file().get()) || !temp.file().close())
        return reasonOf(::GetLastError(), cannotWrite);
    // A file with several names, or one that only its owner can recreate, is rewritten in place.
    if (target.hasOtherNames || !temp.takeOverRights(target))
        return rewriteInPlace(target, temp, bytes);
    if (const char* reason = temp.takePlaceOf(target))
        return reason;
    // The new file is in place. All that is left is that its name reaches the disk, which not every file system can
    // confirm.
    const File folder(openShared(target.folder(), GENERIC_WRITE));
    if (folder)
        ::FlushFileBuffers(folder.get());
    return nullptr;
}
} // namespace files
