#include "kernel/OdEdCommandStack.h"

#include "kernel/OdRxObjectImpl.h"

#include <algorithm>
#include <list>

OdEdCommandContext::~OdEdCommandContext() = default;
OdEdCommand::~OdEdCommand() = default;
OdEdCommandStack::~OdEdCommandStack() = default;

namespace
{
using NameOf = OdString (OdEdCommand::*)() const;

class CommandStack : public OdEdCommandStack
{
public:
    bool addCommand(OdEdCommand* command) override
    {
        if (!command)
            throw OdError(eInvalidInput);
        const OdString name = command->globalName();
        if (name.isEmpty())
            throw OdError(eInvalidInput);
        if (lookupGlobal(name))
            return false;
        m_commands.push_back({OdEdCommandPtr(command), command->groupName()});
        return true;
    }

    // Allocates nothing: an unloading module must not leave a command behind because memory ran out.
    void removeGroup(const OdString& group) override
    {
        // The commands leave the stack before they are released, so one whose destructor asks the stack finds it
        // consistent.
        std::list<Entry> removed;
        for (auto at = m_commands.begin(); at != m_commands.end();)
        {
            const auto entry = at++;
            if (odEqualNoCase(entry->group, group))
                removed.splice(removed.end(), m_commands, entry);
        }
    }

    OdEdCommandPtr lookupGlobal(const OdString& name) const override { return find(&OdEdCommand::globalName, name); }
    OdEdCommandPtr lookupLocal(const OdString& name) const override { return find(&OdEdCommand::localName, name); }

    OdEdCommandPtr lookup(const OdString& name) const override
    {
        OdEdCommandPtr command = lookupGlobal(name);
        return command ? command : lookupLocal(name);
    }

    bool executeCommand(const OdString& name, OdEdCommandContext* context) override
    {
        // This reference keeps the command alive until it has ended, even if it removes itself from the stack.
        const OdEdCommandPtr command = lookup(name);
        if (!command)
            return false;
        command->execute(context);
        return true;
    }

    std::vector<OdEdCommandPtr> commands() const override
    {
        std::vector<OdEdCommandPtr> result;
        for (const Entry& entry : m_commands)
            result.push_back(entry.command);
        return result;
    }

private:
    struct Entry
    {
        OdEdCommandPtr command;
        OdString group; // as it was when the command was added
    };

    // An empty name finds nothing, even if a command has no local name.
    OdEdCommandPtr find(NameOf nameOf, const OdString& name) const
    {
        if (name.isEmpty())
            return nullptr;
        const auto hasName = [nameOf, &name](const Entry& entry)
        { return odEqualNoCase((entry.command.get()->*nameOf)(), name); };
        const auto found = std::find_if(m_commands.begin(), m_commands.end(), hasName);
        return found == m_commands.end() ? nullptr : found->command;
    }

    std::list<Entry> m_commands;
};
} // namespace

OdEdCommandStackPtr odedNewCommandStack()
{
    return OdRxObjectImpl<CommandStack>::createObject();
}

OdEdCommandStackPtr odedRegCmds()
{
    // Never destroyed: the modules of the commands may be unloaded before the process ends.
    static OdEdCommandStack* const stack = odedNewCommandStack().detach();
    return stack;
}
