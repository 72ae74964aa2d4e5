#pragma once

#include "kernel/OdEdCommand.h"

#include <vector>

// The commands that can be run by name, in the order in which they were added. Names are compared without regard to
// case. Main thread only.
class OdEdCommandStack : public OdRxObject
{
public:
    // Adds the command with a reference of its own and answers true, unless the stack has a command of that global name
    // already: the first one stays. Local names are not reserved: when two commands share one, looking it up finds the
    // one added first. Throws OdError (eInvalidInput) for null and for an empty global name.
    virtual bool addCommand(OdEdCommand* command) = 0;

    // Removes all commands of the group; a command that is running goes when it has ended. An unknown group is no
    // error.
    virtual void removeGroup(const OdString& group) = 0;

    // The command of that global (local) name, or null.
    virtual OdEdCommandPtr lookupGlobal(const OdString& name) const = 0;
    virtual OdEdCommandPtr lookupLocal(const OdString& name) const = 0;

    // By global name first, then by local name.
    virtual OdEdCommandPtr lookup(const OdString& name) const = 0;

    // Runs the command that lookup finds; false when there is none. The command may remove itself, its group and
    // others while it runs. What it throws gets out.
    virtual bool executeCommand(const OdString& name, OdEdCommandContext* context) = 0;

    // All commands as they are now.
    virtual std::vector<OdEdCommandPtr> commands() const = 0;

protected:
    ~OdEdCommandStack() override;
};

using OdEdCommandStackPtr = OdSmartPtr<OdEdCommandStack>;

// An empty stack of one's own.
OdEdCommandStackPtr odedNewCommandStack();

// The stack of this process. It is there until the process ends.
OdEdCommandStackPtr odedRegCmds();
