#include "GarmPC3Editor/Dialogs/LanguageTexts.h"

#include "host/GmString.h"
#include "mfc/AfxModuleState.h"

GmTexts languageTexts()
{
    return [](UINT id) { return GmString::loadString(id, OD_T(""), AfxGetResourceHandle()); };
}
