#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdEdCommand.h"
#include "kernel/OdResBuf.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/room/PrinterRoom.h"
#include "tests/unit/commands/ScriptedModule.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

// An object that is no result value.
OdRxObjectPtr newStranger();

// A host with an empty search folder, a room with the printer "Plotter A" (driver "Acme HP-GL") and named values of its
// own. At the end nothing of a printer may be open.
class CommandTest : public ::testing::Test
{
protected:
    CommandTest();
    ~CommandTest() override;

    // Puts a configuration into the search folder and returns its full path. Unless change says otherwise it is bound
    // to "Plotter A" by name and can be turned into a device mode.
    OdString putConfiguration(const OdString& fileName, const std::function<void(GmPlotCfg3&)>& change = {});

    // Puts a file into the search folder that is no configuration.
    void putDamagedFile(const OdString& fileName) { m_folder.addFile(fileName.c_str()); }

    // Puts an empty folder "plots" in front of the search folder: what is saved then goes there and stands in
    // savedFiles() by its name.
    void saveToPlots();
    std::set<std::string> savedFiles() const;
    // Where a name put behind "plots" and a "\" leads to. Only on Windows is that inside the folder; elsewhere the
    // "\" is part of a file's name, and nothing else is different.
    static std::string inPlots(const std::string& fileName) { return "plots\\" + fileName; }

    GmServicesManagerInterface& values() { return m_interfaces->document().servicesManager(); }
    OdEdCommandContext* context() { return m_interfaces.get(); }

    void setText(const OdChar* name, const OdString& value);
    void setFlag(const OdChar* name, bool value);
    void setAddress(const OdChar* name, void* value);

    // The value as it was written; a test failure and a value without content when it is missing or no OdResBuf.
    OdResBufPtr valueOf(const OdChar* name);
    OdString textOf(const OdChar* name) { return valueOf(name)->getString(); }

    PrinterRoom m_room;
    ScriptedModule m_module;
    GarmInterfacesPtr m_interfaces;
    TemporaryFolder m_folder;
};
