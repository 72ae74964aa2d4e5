#include "mfc/AfxModuleState.h"

#include "mfc/AtlBaseModule.h"
#include "mfc/CWinApp.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
HINSTANCE handle(std::uintptr_t value)
{
    return reinterpret_cast<HINSTANCE>(value);
}

TEST(AfxModuleState, ownStateIsCurrentUntilAnotherIsSet)
{
    EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
}

TEST(AfxModuleState, managedStateIsCurrentForItsScopeOnly)
{
    AFX_MODULE_STATE other;
    other.m_hCurrentResourceHandle = handle(0x5000);
    const HINSTANCE own = AfxGetResourceHandle();
    {
        AFX_MANAGE_STATE(&other);
        EXPECT_EQ(AfxGetModuleState(), &other);
        EXPECT_EQ(AfxGetResourceHandle(), handle(0x5000));
        AfxSetResourceHandle(handle(0x6000));
    }
    EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
    EXPECT_EQ(AfxGetResourceHandle(), own);
    EXPECT_EQ(other.m_hCurrentResourceHandle, handle(0x6000));
}

TEST(AfxModuleState, nestedScopesRestoreTheOneAround)
{
    AFX_MODULE_STATE outer;
    AFX_MODULE_STATE inner;
    AFX_MANAGE_STATE(&outer);
    {
        AFX_MAINTAIN_STATE2 guard(&inner);
        {
            AFX_MAINTAIN_STATE2 own(AfxGetStaticModuleState());
            EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
        }
        EXPECT_EQ(AfxGetModuleState(), &inner);
    }
    EXPECT_EQ(AfxGetModuleState(), &outer);
}

TEST(AfxModuleState, settingNullMakesTheOwnStateCurrent)
{
    AFX_MODULE_STATE other;
    EXPECT_EQ(AfxSetModuleState(&other), AfxGetStaticModuleState());
    EXPECT_EQ(AfxSetModuleState(nullptr), &other);
    EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
}

TEST(AfxModuleState, isCurrentPerThread)
{
    AFX_MODULE_STATE other;
    AFX_MANAGE_STATE(&other);
    AFX_MODULE_STATE* seen = nullptr;
    std::thread([&seen] { seen = AfxGetModuleState(); }).join();
    EXPECT_EQ(seen, AfxGetStaticModuleState());
}

TEST(AfxModuleState, askingForItKeepsTheLastError)
{
    ::SetLastError(ERROR_PRINTER_DELETED);
    AfxGetModuleState();
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_PRINTER_DELETED));
}

TEST(AfxModuleState, afxWinInitPassesTheInstanceOn)
{
    CWinApp app;
    const HINSTANCE instance = ::GetModuleHandleW(nullptr);
    EXPECT_EQ(AfxWinInit(instance, nullptr, nullptr, 0), TRUE);
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(app.m_hInstance, instance);
    EXPECT_EQ(AfxGetInstanceHandle(), instance);
    EXPECT_EQ(AfxGetResourceHandle(), instance);
    EXPECT_EQ(_AtlBaseModule.GetModuleInstance(), instance);
    EXPECT_EQ(_AtlBaseModule.GetResourceInstance(), instance);
}
} // namespace
