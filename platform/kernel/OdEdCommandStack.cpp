#include "kernel/OdEdCommandStack.h"

#include "kernel/OdRxObjectImpl.h"

#include <algorithm>
#include <iterator>

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
        m_commands.emplace_back(command);
        return true;
    }

    void removeGroup(const OdString& group) override
    {
        const auto stays = [&group](const OdEdCommandPtr& command)
        { return !odEqualNoCase(command->groupName(), group); };
        const auto first = std::stable_partition(m_commands.begin(), m_commands.end(), stays);

        // They leave the stack before they are released, so a command that asks the stack while it goes finds it whole.
        const std::vector<OdEdCommandPtr> removed(std::make_move_iterator(first),
                                                  std::make_move_iterator(m_commands.end()));
        m_commands.erase(first, m_commands.end());
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
        // This reference keeps the command until it has ended, also when it takes itself off the stack.
        const OdEdCommandPtr command = lookup(name);
        if (!command)
            return false;
        command->execute(context);
        return true;
    }

    std::vector<OdEdCommandPtr> commands() const override { return m_commands; }

private:
    // An empty name finds nothing, also when a command has no local name.
    OdEdCommandPtr find(NameOf nameOf, const OdString& name) const
    {
        if (name.isEmpty())
            return nullptr;
        const auto hasName = [nameOf, &name](const OdEdCommandPtr& command)
        { return odEqualNoCase((command.get()->*nameOf)(), name); };
        const auto found = std::find_if(m_commands.begin(), m_commands.end(), hasName);
        return found == m_commands.end() ? nullptr : *found;
    }

    std::vector<OdEdCommandPtr> m_commands;
};
} // namespace

OdEdCommandStackPtr odedNewCommandStack()
{
    return OdRxObjectImpl<CommandStack>::createObject();
}

OdEdCommandStackPtr odedRegCmds()
{
    // Never destroyed: at the end of the process the commands' modules may be gone before it.
    static OdEdCommandStack* const stack = odedNewCommandStack().detach();
    return stack;
}
