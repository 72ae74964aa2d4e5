#include "host/GmServicesManagerInterface.h"

#include <algorithm>
#include <utility>

OdRxObjectPtr GmServicesManagerInterface::get(const OdString& name) const
{
    const auto found = std::ranges::find(m_values, name, &NamedValue::name);
    return found == m_values.end() ? nullptr : found->value;
}

void GmServicesManagerInterface::set(const OdString& name, const OdRxObjectPtr& value)
{
    // References of our own: the arguments may be part of the value that is replaced.
    NamedValue written{name, value};
    if (!written.value)
    {
        remove(written.name);
        return;
    }
    m_values.reserve(m_values.size() + 1);
    remove(written.name);
    m_values.push_back(std::move(written));
}

bool GmServicesManagerInterface::remove(const OdString& name)
{
    const auto found = std::ranges::find(m_values, name, &NamedValue::name);
    if (found == m_values.end())
        return false;
    // The value leaves the list before it is released, so a destructor that uses the list finds it consistent.
    const NamedValue removed = std::move(*found);
    m_values.erase(found);
    return true;
}

void GmServicesManagerInterface::clear()
{
    const std::vector<NamedValue> removed = std::exchange(m_values, {});
}

std::vector<OdString> GmServicesManagerInterface::names() const
{
    std::vector<OdString> result;
    result.reserve(m_values.size());
    for (const NamedValue& value : m_values)
        result.push_back(value.name);
    return result;
}
