#pragma once

#include "GarmPC3Editor/Commands/PC3EditorCommand.h"

// "_PC3GETDEVMODE": returns the Windows printer of a plot device and what its configuration implies. Arguments and
// results are named values:
//
//   in   "deviceName"         string, required: a configuration's file name (ends in ".pc3") or a Windows printer
//        "printerName"        string, required, its value is ignored
//        "hwndPost"           pointer: a window to notify; the check then runs in the background, posts
//                             printerCheckedMessage and writes nothing
//        "paperName"          string, without effect
//   out  "printerName"        string, empty if no printer could be determined
//        "devMode"            binary chunk: a DEVMODEW with its private bytes, empty when there is none
//        "result"             bool: whether a printer was determined
//        "paperName"          string
//        "driverType"         16-bit integer
//        "canonicalModelName" string
//
// All results are written in this order if both required values are there. A value that is not an OdResBuf throws
// OdError_NotThatKindOfClass. No user interface.
class PC3GetDevModeCommand : public PC3EditorCommand
{
public:
    // Throws OdError (eInvalidInput) if the local name is empty.
    PC3GetDevModeCommand();

    void execute(OdEdCommandContext* context) override;
};
