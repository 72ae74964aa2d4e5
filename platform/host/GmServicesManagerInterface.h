#pragma once

#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"

#include <vector>

// The named values through which the host and a command exchange arguments and results. A value is any object, mostly
// an OdResBuf; asking for the class one needs is up to the reader. Names are exact. Main thread only.
class GmServicesManagerInterface
{
public:
    // The value itself, not a copy; null when there is none of that name.
    OdRxObjectPtr get(const OdString& name) const;

    // Stores the value under the name, in place of the one before; null takes the name away. When memory runs out
    // nothing has changed.
    void set(const OdString& name, const OdRxObjectPtr& value);

    // Whether there was such a value.
    bool remove(const OdString& name);

    void clear();

    // In the order in which the values they have now were written.
    std::vector<OdString> names() const;

private:
    struct NamedValue
    {
        OdString name;
        OdRxObjectPtr value;
    };

    std::vector<NamedValue> m_values;
};
