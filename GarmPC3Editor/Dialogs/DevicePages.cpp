#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "GarmPC3Editor/Dialogs/CCollating.h"
#include "GarmPC3Editor/Dialogs/CCustomProp.h"
#include "GarmPC3Editor/Dialogs/CMergeCtrl.h"
#include "GarmPC3Editor/Dialogs/CRasterGraphics.h"
#include "GarmPC3Editor/Dialogs/CTrueType.h"
#include "GarmPC3Editor/Dialogs/CVectorGraphics.h"

namespace
{
std::unique_ptr<GmDeviceSubDlg> newPage(std::int32_t type, GmTabDevice& tab)
{
    switch (type)
    {
    case eCollating:
        return std::make_unique<CCollating>(tab);
    case eVectorGraphics:
        return std::make_unique<CVectorGraphics>(tab);
    case eRasterGraphics:
        return std::make_unique<CRasterGraphics>(tab);
    case eTrueType:
        return std::make_unique<CTrueType>(tab);
    case eMergeCtrl:
        return std::make_unique<CMergeCtrl>(tab);
    case eCustomProp:
        return std::make_unique<CCustomProp>(tab);
    default:
        return nullptr;
    }
}
} // namespace

std::unique_ptr<GmDeviceSubDlg> createDevicePage(std::int32_t type, GmTabDevice& tab)
{
    std::unique_ptr<GmDeviceSubDlg> page = newPage(type, tab);
    return page && page->createInFrame() ? std::move(page) : nullptr;
}
