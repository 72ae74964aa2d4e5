#pragma once

#include "GarmPC3Editor/Commands/PC3EditorCommand.h"

// "_PC3EDIT": edits a plotter configuration. Arguments are named values:
//
//   in   "plotCfgName"    string, required: a configuration's file name, or the name of a Windows printer
//        "bSystemPrinter" bool, required: which of the two; a printer gets a new configuration
//        "paperName"      string: the paper to select in a file's configuration
//
// A value that is no OdResBuf throws OdError_NotThatKindOfClass. Whatever keeps the configuration from being edited
// ends the command without results, which is how the host knows. So far every run ends so: the configuration is
// brought up, but there is no window to edit it in.
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
