#pragma once

#include "kernel/OdRxObject.h"
#include "kernel/OdString.h"

#include <vector>

// The named values through which the host and a command exchange arguments and results. A value is any object, usually
// an OdResBuf; the reader casts it to the class it needs. Names match exactly. Main thread only.
class GmServicesManagerInterface
{
public:
    // The value itself, not a copy; null if there is none with that name.
    OdRxObjectPtr get(const OdString& name) const;

    // Stores the value under the name, replacing an earlier one; null removes the name. If memory runs out, nothing has
    // changed.
    void set(const OdString& name, const OdRxObjectPtr& value);

    // Returns whether there was such a value.
    bool remove(const OdString& name);

    void clear();

    // In the order in which their current values were written.
    std::vector<OdString> names() const;

private:
    struct NamedValue
    {
        OdString name;
        OdRxObjectPtr value;
    };

    std::vector<NamedValue> m_values;
};
