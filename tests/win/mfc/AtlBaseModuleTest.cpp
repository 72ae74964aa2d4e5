#include "mfc/AtlBaseModule.h"

#include <gtest/gtest.h>

namespace
{
HINSTANCE handle(std::uintptr_t value)
{
    return reinterpret_cast<HINSTANCE>(value);
}

TEST(AtlBaseModule, setResourceInstanceReturnsTheOneBefore)
{
    ATL::CAtlBaseModule module;
    EXPECT_EQ(module.GetResourceInstance(), nullptr);
    EXPECT_EQ(module.SetResourceInstance(handle(0x1000)), nullptr);
    EXPECT_EQ(module.SetResourceInstance(handle(0x2000)), handle(0x1000));
    EXPECT_EQ(module.GetResourceInstance(), handle(0x2000));
}

TEST(AtlBaseModule, resourceInstanceAndModuleInstanceAreTwoThings)
{
    ATL::CAtlBaseModule module;
    module.m_hInst = handle(0x3000);
    module.SetResourceInstance(handle(0x4000));
    EXPECT_EQ(module.GetModuleInstance(), handle(0x3000));
    EXPECT_EQ(module.GetResourceInstance(), handle(0x4000));
}
} // namespace
