#pragma once

#include "kernel/OdRxModule.h"
#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"
#include "kernel/OdTypes.h"

// What a command runs in. The host derives its interface object from it, and commands cast to that.
class OdEdCommandContext : public OdRxObject
{
protected:
    ~OdEdCommandContext() override;
};

// A command. The order of the virtual functions is fixed, because modules and hosts are built separately.
class OdEdCommand : public OdRxObject
{
public:
    // Commands of one group are removed together.
    virtual OdString groupName() const = 0;

    // The name that is the same in every language, and the one in the language of the user interface.
    virtual OdString globalName() const = 0;
    virtual OdString localName() const = 0;

    // Does the command's work. Exceptions reach whoever ran the command.
    virtual void execute(OdEdCommandContext* context) = 0;

    // The module that the command belongs to, or null if it does not say.
    virtual OdRxModule* module() const = 0;

    // Switches the command off, or on again. A command that cannot be switched off throws OdError.
    virtual void undefine(bool off) = 0;

    virtual OdInt32 flags() const = 0;

protected:
    ~OdEdCommand() override;
};

using OdEdCommandPtr = OdSmartPtr<OdEdCommand>;
