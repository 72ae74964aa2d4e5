#pragma once

#include "kernel/OdString.h"
#include "plothost/ResellerSettings.h"

#include <optional>
#include <vector>

namespace plothost
{
// What the program returns to its caller.
enum ExitStatus
{
    exitYes = 0,      // success
    exitNo = 1,       // refused; one line on standard error says why
    exitUsage = 2,    // the command line cannot be understood
    exitNoModule = 3, // the module could not be loaded
};

enum class Verb
{
    list,
    devmode,
    edit,
    create,
    show,
    commands,
    plot,
};

// One understood command line. Texts are as they were typed: paths are not made absolute yet.
struct Request
{
    Verb verb = Verb::list;
    OdString name; // devmode: device; edit: configuration or printer; create: printer
    OdString file; // create, show
    bool json = false;
    bool full = false; // show
    bool background = false;
    bool isPrinter = false;
    OdString paper; // edit
    std::optional<OdString> out;
    std::optional<OdString> searchPath;
    std::optional<OdString> language;
    std::optional<OdString> module;
    std::optional<OdString> settings;
    int wait = 30; // for the print server, in seconds
    std::vector<ResellerSetting> reseller;
};
} // namespace plothost
