#include "GarmPC3Editor/Decisions/PrinterExchange.h"

OdSharedPtr<GmPlotCfg3> exchangedForPrinter(const OdSharedPtr<GmPlotCfg3>& cfg, const OdSharedPtr<GmPlotCfg3>& newCfg)
{
    GmMetaNode& present = cfg->m_meta;
    const GmMetaNode& chosen = newCfg->m_meta;
    if (present.m_dm_driver_version != chosen.m_dm_driver_version ||
        !odEqualNoCase(present.m_win_driver_name, chosen.m_win_driver_name))
        return newCfg;
    present.m_win_device_name = chosen.m_win_device_name;
    return cfg;
}
