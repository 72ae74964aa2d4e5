#include "mfc/AfxDll.h"

#include "mfc/AfxModuleState.h"
#include "mfc/CWinApp.h"

#include <utility>

namespace
{
bool applicationRuns = false;

void exitInstance(CWinApp& app) noexcept
{
    try
    {
        app.ExitInstance();
    }
    catch (...)
    {
        // Our caller is the loader, so no exception may leave. The module is unloaded in any case.
    }
}

bool initInstance(CWinApp& app) noexcept
{
    try
    {
        return app.InitInstance() != FALSE;
    }
    catch (...)
    {
        return false;
    }
}
} // namespace

bool AfxDllProcessAttach(HINSTANCE hInstance) noexcept
{
    AfxWinInit(hInstance, nullptr, nullptr, 0);
    CWinApp* app = AfxGetApp();
    if (!app)
        return true;
    applicationRuns = initInstance(*app);
    if (!applicationRuns)
        exitInstance(*app);
    return applicationRuns;
}

void AfxDllProcessDetach() noexcept
{
    // After a refused attach both the C runtime and the loader report a detach.
    if (std::exchange(applicationRuns, false))
        if (CWinApp* app = AfxGetApp())
            exitInstance(*app);
}
