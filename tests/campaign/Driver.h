#pragma once

#include "campaign/Transcript.h"
#include "kernel/OdString.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"

#include <vector>

namespace campaign
{
// The flagged public fields of a block.
Json fieldsOf(const DevModeView& block);

// The result of a merge, with the call.
struct Merged
{
    LONG result = -1;
    DevModeBlock block;
    Call call;

    bool isBlock() const { return result == IDOK && block.view().isValid(); }
};

// A paper in the list of the driver. Its size is in millimetres; 0 if the lists of the driver differ in length.
struct ListedPaper
{
    OdString name;
    WORD code = 0;
    double width = 0;
    double length = 0;
};

// The paper of a device context in millimetres: its size, and the unprintable margins at the left and at the bottom.
struct Sheet
{
    double width = 0;
    double length = 0;
    double left = 0;
    double bottom = 0;
};

// The spooler and driver of one queue, without the module.
class Driver
{
public:
    explicit Driver(const OdString& printer);

    bool isOpen() const { return static_cast<bool>(m_printer); }
    const OdString& printerName() const { return m_name; }

    // In the order of the driver.
    std::vector<ListedPaper> papers() const;
    DevModeBlock defaults() const;

    // DocumentPropertiesW, in and out. The merged block stays the default of the driver for the rest of the process.
    Merged merge(std::span<const BYTE> bytes) const;

    // The paper of the device in this mode; all 0 if it is unknown.
    Sheet sheet(const DevModeView& mode) const;

    // All calls that creating a configuration makes, in order, with their results.
    std::vector<Call> interview() const;

private:
    OdString m_name;
    Call m_open;
    PrinterHandle m_printer;
};
} // namespace campaign
