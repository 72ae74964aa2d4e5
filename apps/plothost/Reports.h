#pragma once

#include "plothost/DevModeFields.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plothost
{
// What "list" prints.
struct ListReport
{
    struct Printer
    {
        OdString name;
        OdString driver;
        OdString port;
        bool isDefault = false;
    };
    struct Configuration
    {
        OdString name; // without folder
        OdString path; // with it
    };

    std::vector<Printer> printers;
    std::vector<OdString> folders; // the search path
    std::vector<Configuration> configurations;
};

// What "devmode" prints: the results of the command.
struct DevModeReport
{
    OdString deviceName; // as it was asked for
    bool result = false;
    OdString printerName;
    OdString paperName;
    std::int16_t driverType = 0;
    OdString canonicalModelName;
    std::vector<BYTE> devMode; // empty when there is none
};

// What "devmode --background" prints.
struct BackgroundReport
{
    OdString deviceName;
    bool flag = false; // the message's first parameter
};

// What "edit" prints: the values that the command left.
struct EditReport
{
    OdString name; // as it was asked for
    bool isPrinter = false;
    OdString fileName;
    OdString paperName;
    std::int16_t result = 0; // the configuration's driver type, not whether it was saved
    OdString canonicalModelName;
};

// What "commands" prints.
struct CommandsReport
{
    struct Command
    {
        OdString group;
        OdString globalName;
        OdString localName;
    };
    std::vector<Command> commands;
};

// For people: lines of UTF-8. For programs: one JSON object and a line end.
std::string textOf(const ListReport& report);
std::string jsonOf(const ListReport& report);
std::string textOf(const DevModeReport& report);
std::string jsonOf(const DevModeReport& report);
std::string textOf(const BackgroundReport& report);
std::string jsonOf(const BackgroundReport& report);
std::string textOf(const EditReport& report);
std::string jsonOf(const EditReport& report);
std::string textOf(const CommandsReport& report);

// "1 (Windows system printer)"; only the number if it has no meaning. "Windows system printer"; "" for any other driver
// type.
std::string driverTypeName(std::int16_t driverType);

std::string driverTypeText(std::int16_t driverType);
} // namespace plothost
