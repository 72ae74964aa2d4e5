#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/Model/Numbers.h"

// A language in which every text is its number in square brackets: "[217]". In formats the arguments follow it.
inline GmTexts fakeTexts()
{
    return [](UINT id)
    {
        OdString text = OD_T("[") + decimalFromNumber(id) + OD_T("]");
        switch (id)
        {
        case 210:
            return text + OD_T("%s/%s");
        case 231:
            return text + OD_T("%d/%d");
        case 103:
        case 227:
        case 230:
        case 232:
        case 233:
            return text + OD_T("%s");
        case 234:
        case 235:
        case 236:
            return text + OD_T("%d");
        default:
            return text;
        }
    };
}
