#pragma once

#include "host/GmModuleLoader.h"
#include "tests/win/module/ModuleFiles.h"
#include "win32/windows/SystemHandles.h"

#include <gtest/gtest.h>

#include <utility>

// The module, loaded by the host's loader as long as the object lives.
class LoadedModule
{
public:
    explicit LoadedModule(const std::filesystem::path& file = builtModule())
    {
        const auto loaded = GmModuleLoader::load(textOf(file));
        m_object = loaded.module;
        EXPECT_NE(m_object, nullptr) << loaded.whyNot;
    }
    ~LoadedModule() { unload(); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    OdRxModule* object() const noexcept { return m_object; }
    HMODULE library() const { return m_object ? static_cast<HMODULE>(m_object->sysData()) : nullptr; }

    void unload()
    {
        if (OdRxModule* const object = std::exchange(m_object, nullptr))
        {
            EXPECT_EQ(GmModuleLoader::unload(object), OdString());
        }
    }

    // An exported function of the module, null when there is none.
    template <class Function>
    Function find(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(library(), name)));
    }

    static bool isInProcess() { return ::GetModuleHandleW(L"GarmPC3Editor.grx") != nullptr; }

private:
    OdRxModule* m_object = nullptr;
};
