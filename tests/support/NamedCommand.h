#pragma once

#include "kernel/OdEdCommandStack.h"
#include "kernel/OdRxObjectImpl.h"

#include <functional>
#include <utility>

// A command with the given names and action.
class NamedCommand : public OdEdCommand
{
public:
    struct Names
    {
        OdString group;
        OdString global;
        OdString local;
    };
    using Action = std::function<void(OdEdCommandContext*)>;

    explicit NamedCommand(Names names, Action action = {}) : m_names(std::move(names)), m_action(std::move(action)) {}

    OdString groupName() const override { return m_names.group; }
    OdString globalName() const override { return m_names.global; }
    OdString localName() const override { return m_names.local; }
    void execute(OdEdCommandContext* context) override
    {
        if (m_action)
            m_action(context);
    }
    OdRxModule* module() const override { return nullptr; }
    void undefine(bool) override {}
    OdInt32 flags() const override { return 0; }

private:
    Names m_names;
    Action m_action;
};
