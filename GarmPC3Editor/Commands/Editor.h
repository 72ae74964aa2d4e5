#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

#include <optional>

// The windows that a run of PC3EDIT shows. The module has the real ones; a program that uses the commands without
// windows defines its own. Both need the language library as the current place of resources.

// How the user left the editor.
struct EditorOutcome
{
    bool confirmed = false;      // with OK
    bool modified = false;       // a setting was changed
    bool replaced = false;       // another printer was chosen
    OdSharedPtr<GmPlotCfg3> cfg; // another object if another printer was chosen
    OdString path;               // its file, which Save As may have changed; empty for none
    OdString fileTitle;          // how the editor named it
};

// Edits a configuration (not null) in place. path is its file, empty for none.
EditorOutcome runEditor(const OdSharedPtr<GmPlotCfg3>& cfg, const OdString& path);

// The name to save the configuration under: not empty, no surrounding white space. Nothing if the user cancelled.
std::optional<OdString> askForName(const OdString& proposedPath);
