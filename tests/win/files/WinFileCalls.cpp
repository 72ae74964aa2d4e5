#include "tests/win/files/WinFileCalls.h"

#include "tests/win/module/ImportPatch.h"

#include <cstring>
#include <memory>
#include <vector>

namespace
{
WinFileCalls* calls = nullptr;
bool within = false;

// Does the real call unless it is the one that fails. A close that fails has closed the handle all the same.
template <class Result, class Real>
Result called(WinFileCalls::Call call, Result failure, Real real)
{
    if (!calls || within)
        return real();
    within = true;
    ++calls->made;
    if (calls->before)
        calls->before(call);
    const bool fails = calls->made == calls->failAt;
    Result result = failure;
    if (!fails || call == WinFileCalls::closeHandle)
        result = real();
    if (fails)
        result = failure;
    const DWORD error = fails ? calls->error : ::GetLastError();
    if (calls->after)
        calls->after(call);
    ::SetLastError(error);
    within = false;
    return result;
}

HANDLE WINAPI createFile(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD how,
                         DWORD flags, HANDLE like)
{
    return called(WinFileCalls::createFile, INVALID_HANDLE_VALUE,
                  [=] { return ::CreateFileW(path, access, share, security, how, flags, like); });
}

BOOL WINAPI setSecurity(HANDLE file, SECURITY_INFORMATION which, PSECURITY_DESCRIPTOR descriptor)
{
    return called(WinFileCalls::setSecurity, FALSE, [=] { return ::SetKernelObjectSecurity(file, which, descriptor); });
}

BOOL WINAPI writeFile(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* overlapped)
{
    return called(WinFileCalls::writeFile, FALSE, [=] { return ::WriteFile(file, bytes, size, written, overlapped); });
}

BOOL WINAPI flush(HANDLE file)
{
    return called(WinFileCalls::flush, FALSE, [=] { return ::FlushFileBuffers(file); });
}

BOOL WINAPI setInformation(HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information, DWORD size)
{
    return called(WinFileCalls::setInformation, FALSE,
                  [=]
                  {
                      if (calls && calls->onSetInformation)
                          return calls->onSetInformation(file, which, information, size);
                      return ::SetFileInformationByHandle(file, which, information, size);
                  });
}

BOOL WINAPI closeHandle(HANDLE handle)
{
    return called(WinFileCalls::closeHandle, FALSE, [=] { return ::CloseHandle(handle); });
}

BOOL WINAPI replaceFile(const wchar_t* replaced, const wchar_t* by, const wchar_t* backup, DWORD flags, void* exclude,
                        void* reserved)
{
    return called(WinFileCalls::replaceFile, FALSE,
                  [=]
                  {
                      if (calls && calls->onReplaceFile)
                          return calls->onReplaceFile(replaced);
                      return ::ReplaceFileW(replaced, by, backup, flags, exclude, reserved);
                  });
}

BOOL WINAPI moveFile(const wchar_t* from, const wchar_t* to, DWORD flags)
{
    return called(WinFileCalls::moveFile, FALSE, [=] { return ::MoveFileExW(from, to, flags); });
}

BOOL WINAPI deleteFile(const wchar_t* path)
{
    return called(WinFileCalls::deleteFile, FALSE, [=] { return ::DeleteFileW(path); });
}

FARPROC WINAPI findFunction(HMODULE library, const char* name)
{
    const bool hidden = calls && !calls->wineTools && std::strcmp(name, "__wine_unix_spawnvp") == 0;
    return hidden ? nullptr : ::GetProcAddress(library, name);
}

ULONGLONG clockOfWaits = 1'000'000;

ULONGLONG WINAPI tickCount()
{
    return clockOfWaits;
}

void WINAPI waitFor(DWORD milliseconds)
{
    clockOfWaits += milliseconds;
    ++calls->waits;
    if (calls->onWait)
        calls->onWait();
}

std::vector<std::unique_ptr<ImportPatch>>& patches()
{
    static std::vector<std::unique_ptr<ImportPatch>> instance;
    return instance;
}

template <class Function>
void patch(const char* name, Function* function)
{
    patches().push_back(std::make_unique<ImportPatch>(::GetModuleHandleW(L"GarmHost.dll"), name,
                                                      reinterpret_cast<const void*>(function)));
}
} // namespace

WinFileCalls::WinFileCalls()
{
    patch("CreateFileW", &::createFile);
    patch("SetKernelObjectSecurity", &::setSecurity);
    patch("WriteFile", &::writeFile);
    patch("FlushFileBuffers", &::flush);
    patch("SetFileInformationByHandle", &::setInformation);
    patch("CloseHandle", &::closeHandle);
    patch("ReplaceFileW", &::replaceFile);
    patch("MoveFileExW", &::moveFile);
    patch("DeleteFileW", &::deleteFile);
    patch("GetProcAddress", &::findFunction);
    patch("GetTickCount64", &::tickCount);
    patch("Sleep", &::waitFor);
    calls = this;
}

WinFileCalls::~WinFileCalls()
{
    calls = nullptr;
    patches().clear();
}
