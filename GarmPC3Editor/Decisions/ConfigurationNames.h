#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// What the editor calls a configuration, and where a changed one is saved.

// The file name with extension, or the Windows printer's name if there is no file.
OdString fileTitle(const OdString& path, const GmPlotCfg3& cfg);

// What the name dialog proposes: the configuration's own path, or if it has none, a path in the first folder of the
// search path named after the printer, with "|", "/" and "\" replaced by "_". Empty if there is neither.
OdString proposedPath(const OdString& path, const OdString& searchPath, const GmPlotCfg3& cfg);

// Where a configuration of that name is written. Unlike in the proposal, the separator is always added, so an empty
// search path gives "\name.pc3"; ".pc3" is always added too.
OdString savePath(const OdString& searchPath, const OdString& name);

// The proposal as the name dialog shows it.
struct GmNameProposal
{
    OdString path;               // ends in ".pc3", in any case of letters
    bool extensionAdded = false; // because the proposed path had none
    OdString name;               // without folder and extension
};
GmNameProposal nameProposal(const OdString& path);

// Without white space on both sides.
OdString trimmed(const OdString& text);
