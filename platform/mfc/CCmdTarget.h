#pragma once

#include "mfc/AfxMessageMap.h"

// The base of every class that has a message map.
class CCmdTarget
{
public:
    CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;
    virtual ~CCmdTarget() = default;

protected:
    // The map of the object's own class, which leads to the maps of its bases.
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    static const AFX_MSGMAP* GetThisMessageMap();

    // The nearest entry for the message, notification code and control, looking in the class's own map before those of
    // its bases; null if there is none.
    const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(UINT message, UINT code, UINT id) const;
};
