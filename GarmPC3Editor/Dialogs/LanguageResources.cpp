#include "GarmPC3Editor/Dialogs/LanguageResources.h"

#include "host/GmString.h"
#include "mfc/AfxModuleState.h"

GmTexts languageTexts()
{
    return [](UINT id) { return GmString::loadString(id, OD_T(""), AfxGetResourceHandle()); };
}

IconHandle loadIcon(UINT id, int size)
{
    // Our own copy, not shared: a shared icon would keep the size and language of its first request.
    return IconHandle(static_cast<HICON>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}
