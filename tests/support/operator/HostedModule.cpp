#include "tests/support/operator/HostedModule.h"

#include "host/CGarmPath.h"
#include "host/GmModuleLoader.h"
#include "host/windows/ModuleFile.h"
#include "kernel/OdText.h"
#include "win32/Win32.h"

#include <stdexcept>

namespace editordriver
{
namespace
{
const OdChar* const fileName = OD_T("GarmPC3Editor.grx");
} // namespace

HostedModule::~HostedModule()
{
    // A refusal does not matter: the process ends anyway.
    if (m_object)
        GmModuleLoader::unload(m_object);
}

void HostedModule::load()
{
    if (m_object)
        throw std::runtime_error("the module is loaded already");
    const auto loaded = GmModuleLoader::load(CGarmPath(moduleFileName(nullptr)).fullFolder() + fileName);
    m_object = loaded.module;
    if (!m_object)
        throw std::runtime_error(odToUtf8(loaded.whyNot));
}

std::string HostedModule::unload()
{
    const OdString whyNot = GmModuleLoader::unload(m_object);
    if (whyNot.isEmpty())
        m_object = nullptr;
    return odToUtf8(whyNot);
}

bool HostedModule::isInProcess() noexcept
{
    return ::GetModuleHandleW(fileName) != nullptr;
}
} // namespace editordriver
