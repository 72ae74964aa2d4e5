#include "GarmPC3Editor/Commands/Editor.h"

// The editor in test programs that show no windows: the user cancels at once.

EditorOutcome runEditor(const OdSharedPtr<GmPlotCfg3>& cfg, const OdString& path)
{
    EditorOutcome outcome;
    outcome.cfg = cfg;
    outcome.path = path;
    return outcome;
}

std::optional<OdString> askForName(const OdString&)
{
    return std::nullopt;
}
