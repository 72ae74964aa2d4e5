#pragma once

#include "GarmPC3Editor/Export.h"
#include "kernel/OdSharedPtr.h"
#include "kernel/OdString.h"

class GmPlotCfg3;
class GmPrinterInfo;

// An installed Windows printer, for the host. Used by one thread at a time. Nothing here throws.
//
// Copies and assigned objects share one open printer, which is closed with the last of them.
class GARM_PC3EDITOR_API GmPrnHelper
{
public:
    // Opens the printer of that name and keeps it open.
    explicit GmPrnHelper(const OdChar* printerName) noexcept;
    GmPrnHelper(const GmPrnHelper& other) noexcept;
    GmPrnHelper& operator=(const GmPrnHelper& other) noexcept;
    ~GmPrnHelper();

    // Whether the printer could be opened.
    bool isValid() const noexcept;

    // The port list exactly as the system gives it, "FILE:" or several separated by commas. ports is emptied first;
    // true when it is not empty afterwards.
    bool getPorts(OdString& ports) noexcept;

    // A new default configuration, unrelated to this printer, or null if memory runs out.
    OdSharedPtr<GmPlotCfg3> getNewPlotCfg3Ptr() noexcept;

private:
    OdSharedPtr<GmPrinterInfo> m_info; // null only if it could not be created
};
