#pragma once

#include "GarmPC3Editor/Model/Fault.h"
#include "kernel/OdString.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"

#include <optional>
#include <vector>

// One installed Windows printer, opened for the life of the object: its ports, its driver, its driver's default device
// mode and its papers. Used by one thread at a time. Failure is a false result, a null block, 0, -1 or an empty text; a
// driver's exceptions and running out of memory pass through.
class GmPrinterInfo
{
public:
    // The paper lists are queried with devMode if given, otherwise with the printer's current device mode. It is not
    // owned, must outlive the object, and must be followed by its private bytes.
    explicit GmPrinterInfo(const OdString& name, const DEVMODEW* devMode = nullptr);
    GmPrinterInfo(const GmPrinterInfo&) = delete;
    GmPrinterInfo& operator=(const GmPrinterInfo&) = delete;

    bool isOpen() const noexcept { return static_cast<bool>(m_printer); }
    HANDLE handle() const noexcept { return m_printer.get(); } // null when the printer could not be opened
    const OdString& printerName() const noexcept { return m_printerName; }

    // Why it could not be opened.
    Fault openFault(FaultStage stage) const;

    // The port list exactly as the system gives it, "FILE:" or several separated by commas. out is emptied first; true
    // when it is not empty afterwards.
    bool getPorts(OdString& out) const;

    // The driver's name. out is emptied first; true when it is not empty afterwards.
    bool driverName(OdString& out) const;

    // The driver's default device mode; null only if there is no size or the driver's fill returns 0. Check the block's
    // view before using it: see defaultDevMode in spooler/PrinterQueries.h.
    DevModeBlock defaultDevMode() const;

    // The driver's papers. The first query loads the lists; once loaded they are never refreshed, and if loading fails,
    // the next query tries again.
    int paperCount();

    // The first paper with that name ignoring case, or -1. A paper without a name from the driver is never found, not
    // even by "".
    int paperIndexByName(OdStringView name);

    // The same, case-sensitive.
    int paperIndexByExactName(OdStringView name);

    // The first paper with that code, compared as unsigned 16-bit, or -1.
    int paperIndexById(int id);

    // The paper's name, at most 64 units; empty if there is no name or no such paper. Valid as long as the object.
    OdStringView paperName(int index);

    // The paper's code; 0 if there is no such paper or the driver delivered no code for it.
    WORD paperId(int index);

    // Whether the driver delivered a code for the paper, even 0.
    bool hasPaperId(int index);

private:
    struct PaperLists
    {
        std::size_t count = 0;          // papers
        std::size_t idsDelivered = 0;   // codes the driver said it wrote
        std::size_t nameSlots = 0;      // names the driver announced
        std::size_t namesDelivered = 0; // names the driver said it wrote
        std::vector<WORD> ids;
        std::vector<OdChar> names;
    };

    void loadPapers();
    OdStringView slot(std::size_t index) const noexcept;
    bool hasCode(std::size_t index) const noexcept;
    template <class IsWanted>
    int firstNamed(IsWanted isWanted);

    OdString m_printerName;
    const DEVMODEW* m_devMode;
    std::optional<PaperLists> m_papers; // none until they are loaded
    PrinterHandle m_printer;            // closed first: the lists outlive it
    DWORD m_openError;                  // from the system; meaningless while the printer is open
};
