#pragma once

#include "plothost/DetailRows.h"
#include "plothost/DriverQuestions.h"
#include "plothost/EditQuery.h"
#include "plothost/PlotDevices.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plothost
{
// What the Plot dialog's decisions need from their surroundings.
struct PlotSurroundings
{
    std::function<ListReport()> list;
    std::function<std::vector<DriverPaper>(const OdString& printer)> papers;
    std::function<std::vector<BYTE>(const OdString& printer)> defaults;
    std::function<std::string(const OdString& deviceName)> whyNoPrinter;
    std::function<std::string(const EditQuestion& question)> whyNotEdited;
    std::function<void()> resetDrivers;
    // Starts the check of a device in the background; its answer goes to PlotSession::answer with the question's
    // number. Returns "" or why it was not started.
    std::function<std::string(const OdString& deviceName, unsigned question)> startCheck;
};

// What is in the controls that the user, and the module's dialogs, may change.
struct PlotControls
{
    OdString paper; // "" if none is selected
    bool landscape = false;
};

// What the dialog shows.
struct PlotView
{
    std::vector<PlotDevice> devices;
    std::optional<std::size_t> device;
    std::string state;
    bool isKnown = false; // until the chosen device was checked, the rest is empty or an earlier device's
    std::vector<OdString> papers;
    std::optional<std::size_t> paper;
    bool landscape = false;
    std::vector<DetailRow> details;
};

// What the Plot dialog decides. Its state is changed by the user's choices and by the results of the background checks;
// after each of these functions the dialog shows the view again.
class PlotSession
{
public:
    explicit PlotSession(PlotSurroundings surroundings);

    const PlotView& view() const noexcept { return m_view; }

    // Another device: nothing is known about it until its check has answered. An index outside the list means no
    // device.
    void choose(std::size_t index);

    // The answer of a check. Returns false and changes nothing if it belongs to an earlier question: checks end in any
    // order, and the user may have chosen another device since.
    bool answer(unsigned question, bool found);

    // Runs the editor for the chosen device with the chosen paper and reads everything again afterwards. controls
    // returns the dialog's content, which the editor may change. Returns "" or why the editor did not open, for the
    // user.
    std::string edit(const std::function<PlotControls()>& controls);

    // The editor is open: results wait until it closes and nothing else can be chosen.
    bool isEditing() const noexcept { return m_editing; }

private:
    void chooseAfterEdit(const PlotDevice& before, const EditAnswer& answer);
    void check();
    void show(const PlotDevice& device, bool found);
    void keepFromEditor(const PlotControls& before, const PlotControls& after, const EditAnswer& answer);

    PlotSurroundings m_surroundings;
    PlotView m_view;
    unsigned m_question = 0; // 0: none is open
    unsigned m_lastQuestion = 0;
    bool m_editing = false;
    // What stays in the controls when the chosen device is read again.
    OdString m_keptPaper;
    std::optional<bool> m_keptLandscape;
};
} // namespace plothost
