#pragma once

#include "host/GarmInterfaces.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdRxObjectImpl.h"

#include <functional>
#include <utility>

// A command that does what a test says, under the name of one of the module's.
class ScriptedCommand : public OdEdCommand
{
public:
    using Script = std::function<void(GmServicesManagerInterface& values)>;

    static constexpr const OdChar* group = OD_T("TEST");

    // Puts it on the process's command stack; remove takes all of them off again.
    static void add(const OdString& name, Script script)
    {
        auto* command = new OdRxObjectImpl<ScriptedCommand>;
        const OdEdCommandPtr held(command, kOdRxObjAttach);
        command->m_name = name;
        command->m_script = std::move(script);
        odedRegCmds()->addCommand(command);
    }
    static void removeAll() { odedRegCmds()->removeGroup(group); }

    OdString groupName() const override { return group; }
    OdString globalName() const override { return OD_T("_") + m_name; }
    OdString localName() const override { return m_name; }
    void execute(OdEdCommandContext* context) override
    {
        m_script(*getServicesManagerInterface(getGarmInterfaces(context).get()));
    }
    OdRxModule* module() const override { return nullptr; }
    void undefine(bool) override {}
    OdInt32 flags() const override { return 0; }

private:
    OdString m_name;
    Script m_script;
};
