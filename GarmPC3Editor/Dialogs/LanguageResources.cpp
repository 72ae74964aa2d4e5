#include "GarmPC3Editor/Dialogs/LanguageResources.h"

#include "host/GmString.h"
#include "mfc/AfxModuleState.h"

GmTexts languageTexts()
{
    return [](UINT id) { return GmString::loadString(id, OD_T(""), AfxGetResourceHandle()); };
}

IconHandle loadIcon(UINT id, int size)
{
    // Of our own rather than shared: a shared icon would keep the size and the language it was first asked for in.
    return IconHandle(static_cast<HICON>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}
