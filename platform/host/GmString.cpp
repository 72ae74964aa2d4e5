#include "host/GmString.h"

#include <vector>

OdString GmString::loadString(UINT id, const OdChar* fallback, HINSTANCE library)
{
    // A null library would mean the program's own string table.
    if (!library)
        return OdString(fallback);

    // The system silently cuts a text to the buffer, so a full buffer is retried with a larger one. A string table
    // holds no text above 65535 units.
    for (int capacity = 256;; capacity *= 2)
    {
        std::vector<OdChar> buffer(static_cast<std::size_t>(capacity));
        const int length = ::LoadStringW(library, id, buffer.data(), capacity);
        if (length <= 0)
            return OdString(fallback);
        if (length < capacity - 1 || capacity > 0x10000)
            return OdString(buffer.data(), length);
    }
}
