#include "GarmPC3Editor/Commands/CommandGroup.h"

#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"
#include "GarmPC3Editor/ThisModule.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdRxObjectImpl.h"

namespace
{
template <class Routine>
OdRoutineResult runRoutine(Routine routine) noexcept
{
    try
    {
        routine();
        return eRoutineNormal;
    }
    catch (...)
    {
        return eRoutineError;
    }
}

// Created before any command is registered, so that removing them needs no memory: a command left on the stack would be
// called after the module is unloaded.
const OdString& groupName()
{
    static const OdString name(PC3EditorCommand::cGroupName);
    return name;
}
} // namespace

OdRoutineResult registerCommands() noexcept
{
    return runRoutine(
        []
        {
            groupName();
            const OdEdCommandStackPtr stack = odedRegCmds();
            const OdSmartPtr<PC3EditCommand> edit = OdRxObjectImpl<PC3EditCommand>::createObject();
            edit->setResourceInstance(garmPC3EditorResourceInstance());
            stack->addCommand(edit.get());
            // Only now: if this one cannot be created, the first one stays in use.
            const OdSmartPtr<PC3GetDevModeCommand> getDevMode = OdRxObjectImpl<PC3GetDevModeCommand>::createObject();
            stack->addCommand(getDevMode.get());
        });
}

OdRoutineResult unregisterCommands() noexcept
{
    return runRoutine([] { odedRegCmds()->removeGroup(groupName()); });
}
