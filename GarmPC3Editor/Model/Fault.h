#pragma once

#include "kernel/OdString.h"

#include <cstddef>
#include <cstdint>

// Why a configuration could not be read, bound to a printer, turned into a DEVMODE, changed by one or created. The code
// that fails fills it in, because only that code knows; a program that wants a sentence builds one from it.

enum class FaultStage
{
    read,          // a file into nodes
    bind,          // to an installed printer
    makeDevMode,   // out of the nodes
    importDevMode, // into the nodes
    create,        // a configuration for a printer
};

// A number never changes its meaning; a new fault gets the next one. Each comment lists the other members of Fault that
// are set.
enum class FaultCode
{
    none = 0,
    badFile = 1,             // reason, line
    missingBlock = 2,        // block
    missingKey = 3,          // block, key
    otherKind = 4,           // block, key, expected
    notANumber = 5,          // block, key, expected, text: as stored
    badCustomItem = 6,       // block, key: the item's
    noPrinterWithDriver = 7, // text: the driver
    noCustomData = 8,        //
    noPrinterName = 9,       //
    badSizes = 10,           // stored: they cannot be those of a DEVMODE
    badPrivateLength = 11,   // block, key, stored, digits
    printerNotOpened = 12,   // text: the printer, systemError
    badDevMode = 13,         // bytes that are not a DEVMODE
    otherPrinter = 14,       // text: the stored printer
    otherSizes = 15,         // stored, given
    unlistedPaper = 16,      // paperCode
    noDefaultDevMode = 17,   // text: the printer
    noPrivateBytes = 18,     // text: the printer
};

// What a key holds.
enum class ValueKind
{
    text,
    flag,
    wholeNumber,
    number,
};

struct Fault
{
    struct Sizes
    {
        std::int32_t size = 0;        // dmSize
        std::int32_t driverExtra = 0; // dmDriverExtra
    };

    FaultStage stage = FaultStage::read;
    FaultCode code = FaultCode::none;
    OdString block{}; // the block's path: "media/size"
    OdString key{};
    ValueKind expected = ValueKind::text;
    OdString text{};
    const char* reason = ""; // the parser's, in English
    unsigned line = 0;       // of the file's text; from 1; 0 if it is not about a line
    Sizes stored{};
    Sizes given{};
    std::size_t digits = 0;
    std::uint16_t paperCode = 0;
    std::uint32_t systemError = 0;
};
