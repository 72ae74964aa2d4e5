#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "fuzz/ScriptedRoom.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"
#include "tests/support/RecordedAsserts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/commands/ScriptedEditor.h"
#include "tests/unit/commands/ScriptedModule.h"

// A host with printers, files and a user, all as the input says. Files are saved in a folder of its own.
class CommandSession
{
public:
    // Starts with both required values of each command, naming "a.pc3".
    explicit CommandSession(Input& input);
    ~CommandSession();

    // Puts a file on the search path: a configuration, changed or not, or any bytes.
    void putFile(Input& input);
    // Stores any value under a name that means something to a command.
    void setValue(Input& input);
    // Decides what the user does with the next sheet and the next name dialog.
    void scriptUser(Input& input);
    void changeRoom(Input& input) { m_printers.change(input); }
    void sabotage(Input& input) { m_printers.sabotage(input); }

    // Notes that a background check was started; each posts once, whatever happens.
    void noteCheck() { ++m_checks; }
    // Runs the checks that are still waiting.
    void finishChecks();

    void expectLeftAsFound();
    // Expects that what was saved is whole and that nothing else was left behind.
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
