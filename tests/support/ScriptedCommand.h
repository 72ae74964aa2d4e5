#pragma once

#include "host/GarmInterfaces.h"
#include "tests/support/NamedCommand.h"

// Commands with a scripted action, under names of commands of the module.
struct ScriptedCommand
{
    using Script = std::function<void(GmServicesManagerInterface& values)>;

    static constexpr const OdChar* group = OD_T("TEST");

    // Adds a command to the command stack of the process; removeAll removes all of them.
    static void add(const OdString& name, Script script)
    {
        const auto run = [script = std::move(script)](OdEdCommandContext* context)
        { script(*getServicesManagerInterface(getGarmInterfaces(context).get())); };
        odedRegCmds()->addCommand(
            OdRxObjectImpl<NamedCommand>::createObject(NamedCommand::Names{group, OD_T("_") + name, name}, run).get());
    }
    static void removeAll() { odedRegCmds()->removeGroup(group); }
};
