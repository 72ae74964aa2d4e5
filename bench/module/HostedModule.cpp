#include "bench/module/HostedModule.h"

#include "bench/module/Places.h"
#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "host/GmModuleLoader.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"

#include <stdexcept>

namespace modulebench
{
namespace
{
const wchar_t* const fileName = L"GarmPC3Editor.grx";

GmServicesManagerInterface& values()
{
    return *getServicesManagerInterface(getGarmInterfaces().get());
}

void execute(const OdChar* command)
{
    if (!odedRegCmds()->executeCommand(command, getGarmInterfaces().get()))
        throw std::runtime_error("there is no such command");
}

void setDevice(const OdString& device)
{
    values().clear();
    values().set(OD_T("deviceName"), OdResBuf::newRb(kRtString, device));
    values().set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
}
} // namespace

HostedModule::HostedModule()
{
    setUiLanguage(OD_T("en"));
    const auto loaded = GmModuleLoader::load(besideThisProgram(fileName));
    m_object = loaded.module;
    if (!m_object)
        throw std::runtime_error(odToUtf8(loaded.whyNot));
}

HostedModule::~HostedModule()
{
    // A refusal does not matter: the process ends anyway.
    GmModuleLoader::unload(m_object);
}

bool HostedModule::isLoaded()
{
    return ::GetModuleHandleW(fileName) != nullptr;
}

void HostedModule::ask(const OdString& device) const
{
    setDevice(device);
    execute(OD_T("PC3GETDEVMODE"));
    const OdResBufPtr result = OdResBuf::cast(values().get(OD_T("result")).get());
    if (!result || !result->getBool())
        throw std::runtime_error("the command found no printer for '" + odToUtf8(device) + "'");
}

void HostedModule::check(const OdString& device, HWND window) const
{
    setDevice(device);
    values().set(OD_T("hwndPost"), GmResBufExtention::newVoid(window));
    execute(OD_T("PC3GETDEVMODE"));
}

void HostedModule::edit(const OdString& configuration) const
{
    values().clear();
    values().set(OD_T("plotCfgName"), OdResBuf::newRb(kRtString, configuration));
    values().set(OD_T("bSystemPrinter"), OdResBuf::newRb(kRtBool, false));
    execute(OD_T("PC3EDIT"));
    if (!values().get(OD_T("fileName")))
        throw std::runtime_error("the editor did not open for '" + odToUtf8(configuration) + "'");
}
} // namespace modulebench
