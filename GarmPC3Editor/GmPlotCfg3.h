#pragma once

#include "GarmPC3Editor/GmCustomNode.h"
#include "GarmPC3Editor/GmIoNode.h"
#include "GarmPC3Editor/GmMediaNode.h"
#include "GarmPC3Editor/GmMetaNode.h"
#include "GarmPC3Editor/GmPrnHelper.h"
#include "GarmPC3Editor/GmResColorMemNode.h"
#include "kernel/OdArray.h"
#include "spooler/DevModeView.h"

class CPBlock;
class CPIAParser;

// How a configuration is bound to an installed printer after reading.
enum ResolvePrinterResult
{
    eNoPrinter = 0,    // no installed printer uses the stored driver
    eSamePrinter = 1,  // the stored printer exists and uses it
    eOtherPrinter = 2, // another one does; its name was stored
};

// This header alone declares all that the module exports for configurations and their printers.
//
// One plotter configuration in memory. Failure is a false result, a null pointer or an empty array; nothing here throws
// (running out of memory included) and nothing shows a message.
//
// Copies share the custom data, the destination and the optional flags: quirk 8.
class GARM_PC3EDITOR_API GmPlotCfg3
{
public:
    // Not defined here: a function defined in the class is not exported, and a host that loads the module late has no
    // virtual function table to build an object with.
    GmPlotCfg3();
    GmPlotCfg3(const GmPlotCfg3& other);
    GmPlotCfg3& operator=(const GmPlotCfg3& other);
    virtual ~GmPlotCfg3();

    // Null on any failure. modified is untouched when the file or a node fails or the configuration names no driver;
    // otherwise it is true exactly when the configuration was bound to another printer than the stored one.
    static OdSharedPtr<GmPlotCfg3> read(const OdString& path, bool& modified);

    // A new configuration for an installed printer, or null. It is not written anywhere.
    static OdSharedPtr<GmPlotCfg3> create(const OdString& printerName);

    // Returns false for an empty path (the disk is untouched) and if the file cannot be written.
    bool write(const OdString& path) const;

    // Imports the driver's defaults. Returns whether anything changed, not whether it succeeded.
    bool setToDefault();

    // The DEVMODEW bytes, dmSize + dmDriverExtra long; empty when none can be built.
    OdArray<unsigned char> toDevMode() const;

    // Imports a device mode. Returns false if it does not match this configuration or a step fails; earlier changes
    // stay. modified is set to whether anything changed.
    bool updateFromDevMode(const DevModeView& dm, const OdString& printerName, bool& modified);
    // For callers that have no length: dm must be followed by its private bytes, dmSize + dmDriverExtra bytes in all.
    bool updateFromDevMode(const DEVMODEW& dm, const OdString& printerName, bool& modified);

    GmMetaNode m_meta;
    GmMediaNode m_media;
    GmIoNode m_io;
    GmResColorMemNode m_res_color_mem;
    OdSharedPtr<GmCustomNode> m_custom; // null if the file has none

    // Known only after importing a device mode, and in no file: quirk 9.
    std::uint32_t m_devModeFields = 0; // its dmFields
    std::uint32_t m_ditherType = 1;    // its dmDitherType
    std::uint16_t m_duplex = 1;        // its dmDuplex

protected:
    bool init(CPIAParser& parser, bool& modified);
    bool writeToBlock(CPBlock& root) const;
    ResolvePrinterResult resolvePrinterByDriver();
    // insert: the configuration is being created, so custom items are added and the printer's ports are read.
    bool fromDevMode(const DevModeView& dm, const OdString& printerName, bool insert, bool& modified);
    bool fromDevMode(const DEVMODEW& dm, const OdString& printerName, bool insert, bool& modified);
};
