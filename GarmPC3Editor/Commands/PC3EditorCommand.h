#pragma once

#include "kernel/OdEdCommand.h"
#include "kernel/OdStaticRxObject.h"
#include "win32/Win32.h"

// What the module's commands have in common: their names and their group. The host can neither undefine them nor ask
// for their module.
class PC3EditorCommand : public OdStaticRxObject<OdEdCommand>
{
public:
    OdString groupName() const override { return m_groupName; }
    OdString globalName() const override { return m_globalName; }
    OdString localName() const override { return m_localName; }
    OdRxModule* module() const override { return nullptr; }

    // Always throws OdError (eInvalidInput), for on and off: these commands cannot be switched off.
    void undefine(bool off) override;

    OdInt32 flags() const override { return 0; }

    // The module's commands are registered in this group and removed with it.
    static const OdChar* const cGroupName;

protected:
    // Sets the group.
    PC3EditorCommand();

    // Each throws OdError (eInvalidInput) for an empty name and then changes nothing.
    void setGroupName(const OdString& name);
    void setGlobalName(const OdString& name);
    void setLocalName(const OdString& name);

    // The local name from the language resource library; the fallback if the library has no such string.
    void loadLocalName(UINT stringId, const OdChar* fallback);

    // The order of the fields is fixed. The three unused ones stay cleared.
    OdString m_localName;
    OdString m_globalName;
    OdString m_groupName;
    void* m_reserved1 = nullptr;
    void* m_reserved2 = nullptr;
    OdInt32 m_reserved3 = 0;
    HINSTANCE m_hResource = nullptr; // set for PC3EDIT only, and only informative: see PC3EditCommand
};
