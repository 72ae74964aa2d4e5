#pragma once

#include "kernel/OdSharedPtr.h"
#include "kernel/OdString.h"

// One named item of a block tree. Items are shared through OdSharedPtr<CPItem>.
class CPItem
{
public:
    // The numbers are part of the interface.
    enum EType
    {
        eBin = 0,
        eBlock = 1,
        eBool = 2,
        eStr = 3,
        eNum = 4,
    };

    virtual ~CPItem() = default;
    CPItem(const CPItem&) = delete;
    CPItem& operator=(const CPItem&) = delete;

    EType type() const noexcept { return m_type; }
    const OdString& name() const noexcept { return m_name; }

protected:
    CPItem(EType type, OdStringView name) : m_type(type), m_name(name) {}
    CPItem(EType type, OdString&& name) noexcept : m_type(type), m_name(std::move(name)) {}

private:
    EType m_type;
    OdString m_name;
};
