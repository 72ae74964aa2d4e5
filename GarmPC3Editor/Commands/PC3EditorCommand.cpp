#include "GarmPC3Editor/Commands/PC3EditorCommand.h"

#include "GarmPC3Editor/ThisModule.h"
#include "host/GmString.h"
#include "kernel/OdError.h"

namespace
{
const OdString& notEmpty(const OdString& name)
{
    if (name.isEmpty())
        throw OdError(eInvalidInput);
    return name;
}
} // namespace

const OdChar* const PC3EditorCommand::cGroupName = OD_T("HIDDEN_GARM_COMMAND_PC3EDITOR");

PC3EditorCommand::PC3EditorCommand()
{
    setGroupName(cGroupName);
}

void PC3EditorCommand::undefine(bool /*off*/)
{
    throw OdError(eInvalidInput);
}

void PC3EditorCommand::setGroupName(const OdString& name)
{
    m_groupName = notEmpty(name);
}

void PC3EditorCommand::setGlobalName(const OdString& name)
{
    m_globalName = notEmpty(name);
}

void PC3EditorCommand::setLocalName(const OdString& name)
{
    m_localName = notEmpty(name);
}

void PC3EditorCommand::loadLocalName(UINT stringId, const OdChar* fallback)
{
    setLocalName(GmString::loadString(stringId, fallback, garmPC3EditorResourceInstance()));
}
