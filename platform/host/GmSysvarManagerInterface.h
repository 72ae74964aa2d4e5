#pragma once

#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"

#include <map>

// The system variables of a document: values by name, without regard to case. Empty until the host sets some. Main
// thread only.
class GmSysvarManagerInterface
{
public:
    // The value itself, or null if there is no such variable.
    OdResBufPtr getVar(const OdString& name) const;

    // Null removes the variable.
    void setVar(const OdString& name, const OdResBufPtr& value);

private:
    struct LessNoCase
    {
        bool operator()(const OdString& a, const OdString& b) const noexcept { return odCompareNoCase(a, b) < 0; }
    };

    std::map<OdString, OdResBufPtr, LessNoCase> m_values;
};
