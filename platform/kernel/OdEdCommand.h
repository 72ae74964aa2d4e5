#pragma once

#include "kernel/OdRxModule.h"
#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"
#include "kernel/OdTypes.h"

// What a command runs in. The host derives its interface object from it; a command casts to that.
class OdEdCommandContext : public OdRxObject
{
protected:
    ~OdEdCommandContext() override;
};

// A command. The order of the virtual functions is fixed: modules and hosts are built apart.
class OdEdCommand : public OdRxObject
{
public:
    // Commands of one group are removed together.
    virtual OdString groupName() const = 0;

    // The name that holds in every language, and the one in the language of the user interface.
    virtual OdString globalName() const = 0;
    virtual OdString localName() const = 0;

    // The command's work. What it throws reaches whoever ran it.
    virtual void execute(OdEdCommandContext* context) = 0;

    // The module it belongs to, or null when it does not say.
    virtual OdRxModule* module() const = 0;

    // Switches the command off (on). A command that cannot be switched off throws OdError.
    virtual void undefine(bool off) = 0;

    virtual OdInt32 flags() const = 0;

protected:
    ~OdEdCommand() override;
};

using OdEdCommandPtr = OdSmartPtr<OdEdCommand>;
