#pragma once

#include "host/GmServicesManagerInterface.h"
#include "host/GmSysvarManagerInterface.h"

// One document of the host, as far as commands see it. Main thread only.
class GmDocInternalInterface
{
public:
    GmSysvarManagerInterface& sysvarManager() noexcept { return m_sysvarManager; }
    GmServicesManagerInterface& servicesManager() noexcept { return m_servicesManager; }

private:
    GmSysvarManagerInterface m_sysvarManager;
    GmServicesManagerInterface m_servicesManager;
};
