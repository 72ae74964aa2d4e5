#include "GarmPC3Editor/PC3ResourceSentry.h"

#include "GarmPC3Editor/ThisModule.h"
#include "mfc/AfxModuleState.h"

PC3ResourceSentry::PC3ResourceSentry() noexcept : m_hSavedResource(AfxGetResourceHandle())
{
    const HINSTANCE library = garmPC3EditorResourceInstance();
    if (m_hSavedResource != library)
        AfxSetResourceHandle(library);
}

PC3ResourceSentry::~PC3ResourceSentry()
{
    AfxSetResourceHandle(m_hSavedResource);
}

// Here, not in the class: a function defined in the class is not exported.
PC3ResourceSentry::PC3ResourceSentry(const PC3ResourceSentry& other) noexcept = default;
PC3ResourceSentry& PC3ResourceSentry::operator=(const PC3ResourceSentry& other) noexcept = default;
