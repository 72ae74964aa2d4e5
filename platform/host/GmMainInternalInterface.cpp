#include "host/GmMainInternalInterface.h"

#include <utility>

OdString GmMainInternalInterface::plotCfgSearchPath() const
{
    const std::scoped_lock lock(m_mutex);
    return m_plotCfgSearchPath;
}

void GmMainInternalInterface::setPlotCfgSearchPath(const OdString& searchPath)
{
    // Copied before the lock is taken and freed after it is released, so that the lock covers only a swap.
    OdString path = searchPath;
    const std::scoped_lock lock(m_mutex);
    std::swap(m_plotCfgSearchPath, path);
}
