// A module as the loader meets them, well made or with one fault (TEST_MODULE_FAULT).

#include "host/GmLanguage.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdRxObjectImpl.h"
#include "kernel/OdRxWin32Module.h"
#include "kernel/OdStaticRxObject.h"

#include <exception>
#include <stdexcept>

namespace
{
enum class Fault
{
    none,
    oldVersion,
    createThrows,
    createGivesNull,
    initThrows,
    attachRefused,
    loadsByName, // a library, from wherever the process looks for one
};

constexpr Fault fault = Fault::TEST_MODULE_FAULT;

HINSTANCE library = nullptr;

class TestCommand : public OdStaticRxObject<OdEdCommand>
{
public:
    OdString groupName() const override { return OD_T("TEST_MODULE"); }
    OdString globalName() const override { return OD_T("_TESTMODULE"); }
    OdString localName() const override { return OD_T("TESTMODULE"); }
    void execute(OdEdCommandContext*) override { throw OdError(eInvalidInput); }
    OdRxModule* module() const override { return nullptr; }
    void undefine(bool) override { throw OdError(eInvalidInput); }
    OdInt32 flags() const override { return 0; }
};

class TestModule : public OdRxModule
{
public:
    void initApp() override
    {
        odedRegCmds()->addCommand(OdRxObjectImpl<TestCommand>::createObject().get());
        if constexpr (fault == Fault::initThrows)
            throw std::runtime_error("no start");
        if constexpr (fault == Fault::loadsByName)
            ::LoadLibraryW(L"libhost_missing_library.dll");
    }
    void uninitApp() override { odedRegCmds()->removeGroup(OD_T("TEST_MODULE")); }

protected:
    ~TestModule() override = default;
};

BOOL onLanguageChange()
{
    return TRUE;
}
} // namespace

extern "C"
{
    BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
    {
        if (reason != DLL_PROCESS_ATTACH)
            return TRUE;
        library = instance;
        // Modules ask for their language library here, under the loader lock.
        if (const HINSTANCE language = GmLoadAppLangResourceDLL(instance, nullptr, &onLanguageChange, nullptr))
            ::FreeLibrary(language);
        return fault == Fault::attachRefused ? FALSE : TRUE;
    }

    __declspec(dllexport) OdRxModule* odrxCreateModuleObject()
    {
        if constexpr (fault == Fault::createThrows)
            throw OdBadAlloc();
        if constexpr (fault == Fault::createGivesNull)
            return nullptr;
        return OdRxWin32Module<TestModule>::create(library);
    }

    __declspec(dllexport) void odrxGetAPIVersion(int& major, int& minor, int& majorBuild, int& minorBuild)
    {
        major = fault == Fault::oldVersion ? 3 : 4;
        minor = 1;
        majorBuild = 1;
        minorBuild = 0;
    }

    // Throws an error of the module's into the caller.
    __declspec(dllexport) void testThrowWrongClass()
    {
        throw OdError_NotThatKindOfClass();
    }

    // Runs the caller's function and gives the code of the error that came out of it, -1 for none, -2 for another
    // exception.
    __declspec(dllexport) int testCatch(void (*call)())
    {
        try
        {
            call();
            return -1;
        }
        catch (const OdError& error)
        {
            return error.code();
        }
        catch (...)
        {
            return -2;
        }
    }

    __declspec(dllexport) int testUncaughtExceptions()
    {
        return std::uncaught_exceptions();
    }
}
