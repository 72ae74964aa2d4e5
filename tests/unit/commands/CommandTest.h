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

// An object that is not a result value.
OdRxObjectPtr newStranger();

// A host with an empty search folder, a room with the printer "Plotter A" (driver "Acme HP-GL") and named values of its
// own. At the end no printer handle may be open.
class CommandTest : public ::testing::Test
{
protected:
    CommandTest();
    ~CommandTest() override;

    // Puts a configuration into the search folder and returns its full path. Unless change says otherwise it is bound
    // to "Plotter A" by name and can be turned into a device mode.
    OdString putConfiguration(const OdString& fileName, const std::function<void(GmPlotCfg3&)>& change = {});

    // Puts a file that is not a configuration into the search folder.
    void putDamagedFile(const OdString& fileName) { m_folder.addFile(fileName.c_str()); }

    // Puts an empty folder "plots" in front of the search folder: files are then saved there, and savedFiles() lists
    // them by name.
    void saveToPlots();
    std::set<std::string> savedFiles() const;
    // The path of a name after "plots" and a "\". Only on Windows is it inside the folder; elsewhere the "\" is part of
    // the file name, and nothing else differs.
    static std::string inPlots(const std::string& fileName) { return "plots\\" + fileName; }

    GmServicesManagerInterface& values() { return m_interfaces->document().servicesManager(); }
    OdEdCommandContext* context() { return m_interfaces.get(); }

    void setText(const OdChar* name, const OdString& value);
    void setFlag(const OdChar* name, bool value);
    void setAddress(const OdChar* name, void* value);

    // The value as it was written; fails the test and returns an empty value if it is missing or not an OdResBuf.
    OdResBufPtr valueOf(const OdChar* name);
    OdString textOf(const OdChar* name) { return valueOf(name)->getString(); }

    PrinterRoom m_room;
    ScriptedModule m_module;
    GarmInterfacesPtr m_interfaces;
    TemporaryFolder m_folder;
};
