#pragma once

#include "campaign/Transcript.h"
#include "kernel/OdString.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"

#include <vector>

namespace campaign
{
// The public fields of a block that a driver may answer, as far as they are flagged.
Json fieldsOf(const DevModeView& block);

// What a driver made of a device mode, with the call.
struct Merged
{
    LONG result = -1;
    DevModeBlock block;
    Call call;

    bool isBlock() const { return result == IDOK && block.view().isValid(); }
};

// A paper of the driver's list. Its size is in millimetres; 0 when the driver's lists do not fit each other.
struct ListedPaper
{
    OdString name;
    WORD code = 0;
    double width = 0;
    double length = 0;
};

// What a device context says about the paper, in millimetres: its size, and what cannot be printed on at the left and
// at the bottom.
struct Sheet
{
    double width = 0;
    double length = 0;
    double left = 0;
    double bottom = 0;
};

// The system's side of one queue, asked without the module.
class Driver
{
public:
    explicit Driver(const OdString& printer);

    bool isOpen() const { return static_cast<bool>(m_printer); }
    const OdString& printerName() const { return m_name; }

    // In the driver's order.
    std::vector<ListedPaper> papers() const;
    DevModeBlock defaults() const;

    // DocumentPropertiesW, in and out. It leaves what was merged as the driver's default for the rest of the process.
    Merged merge(std::span<const BYTE> bytes) const;

    // What the device would print on in this mode; all 0 when it does not say.
    Sheet sheet(const DevModeView& mode) const;

    // Every call that a new configuration rests on, in its order, with what it answered.
    std::vector<Call> interview() const;

private:
    OdString m_name;
    Call m_open;
    PrinterHandle m_printer;
};
} // namespace campaign
