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
    OdString ignored; // the process ends anyway
    if (m_object)
        GmModuleLoader::unload(m_object, ignored);
}

void HostedModule::load()
{
    if (m_object)
        throw std::runtime_error("the module is loaded already");
    OdString whyNot;
    m_object = GmModuleLoader::load(CGarmPath(moduleFileName(nullptr)).fullFolder() + fileName, whyNot);
    if (!m_object)
        throw std::runtime_error(odToUtf8(whyNot));
}

std::string HostedModule::unload()
{
    OdString whyNot;
    if (!GmModuleLoader::unload(m_object, whyNot))
        return odToUtf8(whyNot);
    m_object = nullptr;
    return {};
}

bool HostedModule::isInProcess() noexcept
{
    return ::GetModuleHandleW(fileName) != nullptr;
}
} // namespace editordriver
