#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "fuzz/ScriptedRoom.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"
#include "tests/support/RecordedAsserts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/commands/ScriptedEditor.h"
#include "tests/unit/commands/ScriptedModule.h"

// A host with printers, files and a user as an input wants them. Files are saved in a folder of its own.
class CommandSession
{
public:
    // With both required values of each command, naming "a.pc3".
    explicit CommandSession(Input& input);
    ~CommandSession();

    // A file on the search path: a configuration, changed or not, or any bytes.
    void putFile(Input& input);
    // Any value under a name that means something to a command.
    void setValue(Input& input);
    // What the user does with the next sheet and the next name dialog.
    void scriptUser(Input& input);
    void changeRoom(Input& input) { m_printers.change(input); }
    void sabotage(Input& input) { m_printers.sabotage(input); }

    // A background check was started; each posts once, whatever happens.
    void noteCheck() { ++m_checks; }
    // Runs those that still wait.
    void finishChecks();

    void expectLeftAsFound();
    // What was saved is whole, and nothing else was left behind.
    void expectWholeFiles() const;

    GmServicesManagerInterface& values() { return m_interfaces->document().servicesManager(); }
    OdEdCommandContext* context() { return m_interfaces.get(); }
    ScriptedEditor& editor() { return m_editor; }

private:
    RecordedAsserts m_asserts;
    ScriptedRoom m_printers;
    ScriptedModule m_module;
    ScriptedEditor m_editor;
    GarmInterfacesPtr m_interfaces;
    TemporaryFolder m_folder;
    std::set<std::string> m_put; // files, by name
    int m_checks = 0;
};
