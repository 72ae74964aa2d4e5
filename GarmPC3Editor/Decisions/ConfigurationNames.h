#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

// What the editor calls a configuration, and under which name and where a changed one is kept.

// The file name with extension; without a file the Windows printer's name.
OdString fileTitle(const OdString& path, const GmPlotCfg3& cfg);

// What the name dialog is given: the configuration's own path; without one a path in the first folder of the search
// path, named by the printer with "|", "/" and "\" replaced by "_". Empty when there is neither.
OdString proposedPath(const OdString& path, const OdString& searchPath, const GmPlotCfg3& cfg);

// Where a configuration of that name is written. The separator is put in whatever the folder ends in, unlike in the
// proposal, so an empty search path gives "\name.pc3"; ".pc3" is put on whatever the name ends in.
OdString savePath(const OdString& searchPath, const OdString& name);

// The proposal as the name dialog shows it.
struct GmNameProposal
{
    OdString path;               // ends in ".pc3", in any case of letters
    bool extensionAdded = false; // the proposed path did not
    OdString name;               // without folder and extension
};
GmNameProposal nameProposal(const OdString& path);

// Without white space on both sides.
OdString trimmed(const OdString& text);
