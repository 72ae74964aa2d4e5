#include "host/GmSysvarManagerInterface.h"

OdResBufPtr GmSysvarManagerInterface::getVar(const OdString& name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? nullptr : found->second;
}

void GmSysvarManagerInterface::setVar(const OdString& name, const OdResBufPtr& value)
{
    if (value)
        m_values.insert_or_assign(name, value);
    else
        m_values.erase(name);
}
