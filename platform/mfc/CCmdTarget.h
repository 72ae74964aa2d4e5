#pragma once

#include "mfc/AfxMessageMap.h"

// The base of everything that has a message map.
class CCmdTarget
{
public:
    CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;
    virtual ~CCmdTarget() = default;

protected:
    // The map of the object's own class; its base maps follow from it.
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    static const AFX_MSGMAP* GetThisMessageMap();

    // The nearest entry for the message, notification code and control, the class's own map before its bases; null when
    // there is none.
    const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(UINT message, UINT code, UINT id) const;
};
