#pragma once

#include "GarmPC3Editor/Commands/PC3EditorCommand.h"

// "_PC3EDIT": lets the user edit a plotter configuration. Arguments and results are named values:
//
//   in   "plotCfgName"        string, required: a configuration's file name, or the name of a Windows printer
//        "bSystemPrinter"     bool, required: which of the two; a printer gets a new configuration
//        "paperName"          string: the paper to select in a file's configuration
//   out  "fileName"           string: the saved file's name with extension; without a save see editAndSave
//        "paperName"          string
//        "result"             16-bit integer: the driver type, overwriting the bool for whether a file was written
//        "canonicalModelName" string
//
// The results are written in this order whenever the editor was shown, even if the user cancelled. If the configuration
// cannot be edited, the command ends without results, which is how the host knows. A value that is not an OdResBuf
// throws OdError_NotThatKindOfClass.
//
// The module is locked throughout, so a host that tries to unload it sees that it is in use. A host may run the command
// again while the editor is open: each run has its own configuration and writes its results when it ends. If the host's
// message loop quits, the editor closes as if cancelled.
class PC3EditCommand : public PC3EditorCommand
{
public:
    // Throws OdError (eInvalidInput) if the local name is empty.
    PC3EditCommand();

    // The language resource library at registration. What the command shows later comes from the library that is
    // current then.
    void setResourceInstance(HINSTANCE library) noexcept { m_hResource = library; }
    HINSTANCE resourceInstance() const noexcept { return m_hResource; }

    void execute(OdEdCommandContext* context) override;
};
