#pragma once

#include "GarmPC3Editor/Commands/PC3EditorCommand.h"

// "_PC3EDIT": lets the user edit a plotter configuration. Arguments and results are named values:
//
//   in   "plotCfgName"        string, required: a configuration's file name, or the name of a Windows printer
//        "bSystemPrinter"     bool, required: which of the two; a printer gets a new configuration
//        "paperName"          string: the paper to select in a file's configuration
//   out  "fileName"           string: the saved file's name with extension; without a save see editAndSave
//        "paperName"          string
//        "result"             16-bit integer: the driver type, over the bool that says whether a file was written
//        "canonicalModelName" string
//
// The results are written whenever the editor was shown, in this order, and also when the user cancelled. What keeps
// the configuration from being edited ends the command without results, which is how the host knows. A value that is no
// OdResBuf throws OdError_NotThatKindOfClass.
//
// The module is locked from beginning to end, so that a host that wants to unload it meanwhile sees that it is in use.
// A host may run the command again while the editor is open: each run has a configuration of its own and leaves its
// results when it ends. When the host's message loop is told to quit, the editor ends like with its Cancel.
class PC3EditCommand : public PC3EditorCommand
{
public:
    // Throws OdError (eInvalidInput) when there is no local name.
    PC3EditCommand();

    // The language resource library at registration. What the command shows later takes the library of that moment.
    void setResourceInstance(HINSTANCE library) noexcept { m_hResource = library; }
    HINSTANCE resourceInstance() const noexcept { return m_hResource; }

    void execute(OdEdCommandContext* context) override;
};
