#include "mfc/CCmdTarget.h"

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP messageMap = {nullptr, entries};
    return &messageMap;
}

const AFX_MSGMAP_ENTRY* CCmdTarget::AfxFindMessageEntry(UINT message, UINT code, UINT id) const
{
    const AFX_MSGMAP* map = GetMessageMap();
    while (map)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry)
            if (entry->nMessage == message && entry->nCode == code && entry->nID <= id && id <= entry->nLastID)
                return entry;
        map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr;
    }
    return nullptr;
}
