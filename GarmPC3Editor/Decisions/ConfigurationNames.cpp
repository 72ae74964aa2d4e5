#include "GarmPC3Editor/Decisions/ConfigurationNames.h"

#include "host/CGarmPath.h"
#include "host/FilePath.h"

namespace
{
constexpr OdStringView extension = OD_T(".pc3");

// A printer's name may be a network path; its separators would be taken for folders.
OdString asFileName(const OdString& printerName)
{
    OdString name;
    for (const OdChar c : printerName.view())
        name += c == '|' || c == '/' || c == '\\' ? OdChar('_') : c;
    return name;
}
} // namespace

OdString fileTitle(const OdString& path, const GmPlotCfg3& cfg)
{
    const OdString fileName = CGarmPath(path).fileName();
    return fileName.isEmpty() ? cfg.m_meta.m_win_device_name : fileName;
}

OdString proposedPath(const OdString& path, const OdString& searchPath, const GmPlotCfg3& cfg)
{
    if (!path.isEmpty() || cfg.m_meta.m_win_device_name.isEmpty())
        return path;
    OdString proposal = FilePath::GetFirstPath(searchPath);
    if (!proposal.isEmpty() && proposal.getAt(proposal.getLength() - 1) != '\\')
        proposal += OD_T("\\");
    return proposal + asFileName(cfg.m_meta.m_win_device_name);
}

OdString savePath(const OdString& searchPath, const OdString& name)
{
    return FilePath::GetFirstPath(searchPath) + OD_T("\\") + name + extension;
}

GmNameProposal nameProposal(const OdString& path)
{
    GmNameProposal proposal{path, false, {}};
    if (!odEndsWithNoCase(path, extension))
    {
        proposal.path += extension;
        proposal.extensionAdded = true;
    }
    proposal.name = CGarmPath(proposal.path).name();
    return proposal;
}

OdString trimmed(const OdString& text)
{
    return OdString(odTrimmed(text, odIsSpace));
}
