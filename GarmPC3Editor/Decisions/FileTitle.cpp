#include "GarmPC3Editor/Decisions/FileTitle.h"

#include "host/CGarmPath.h"

OdString fileTitle(const OdString& path, const GmPlotCfg3& cfg)
{
    const OdString fileName = CGarmPath(path).fileName();
    return fileName.isEmpty() ? cfg.m_meta.m_win_device_name : fileName;
}
