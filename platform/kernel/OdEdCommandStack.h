#pragma once

#include "kernel/OdEdCommand.h"

#include <vector>

// The commands that can be run by name, in the order in which they were added. Names are compared without regard to
// case. Main thread only.
class OdEdCommandStack : public OdRxObject
{
public:
    // Adds the command with its own reference and returns true, unless the stack already has a command with that global
    // name: the first one stays. Local names are not reserved: if two commands share one, lookup finds the one added
    // first. Throws OdError (eInvalidInput) for null and for an empty global name.
    virtual bool addCommand(OdEdCommand* command) = 0;

    // Removes all commands of the group; a running command is released when it has ended. An unknown group is not an
    // error.
    virtual void removeGroup(const OdString& group) = 0;

    // The command with that global (local) name, or null.
    virtual OdEdCommandPtr lookupGlobal(const OdString& name) const = 0;
    virtual OdEdCommandPtr lookupLocal(const OdString& name) const = 0;

    // By global name first, then by local name.
    virtual OdEdCommandPtr lookup(const OdString& name) const = 0;

    // Runs the command that lookup finds; returns false if there is none. The command may remove itself, its group and
    // others while it runs. Its exceptions are passed on.
    virtual bool executeCommand(const OdString& name, OdEdCommandContext* context) = 0;

    // A copy of the list of commands.
    virtual std::vector<OdEdCommandPtr> commands() const = 0;

protected:
    ~OdEdCommandStack() override;
};

using OdEdCommandStackPtr = OdSmartPtr<OdEdCommandStack>;

// A new, empty stack.
OdEdCommandStackPtr odedNewCommandStack();

// The stack of this process. It exists until the process ends.
OdEdCommandStackPtr odedRegCmds();
