#pragma once

#include "kernel/OdString.h"

#include <mutex>

// What belongs to the host as a whole. There is one per process; it outlives every thread, and any thread may use it.
class GmMainInternalInterface
{
public:
    // The folders of plotter configurations, separated by ";"; empty until set. A copy, so later changes do not affect
    // the caller.
    OdString plotCfgSearchPath() const;
    void setPlotCfgSearchPath(const OdString& searchPath);

private:
    mutable std::mutex m_mutex;
    OdString m_plotCfgSearchPath;
};
