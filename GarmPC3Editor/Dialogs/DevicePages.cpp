#include "GarmPC3Editor/Dialogs/DevicePages.h"

namespace
{
using Page = std::unique_ptr<GmDeviceSubDlg>;

struct PageClass
{
    GmDeviceEntry type;
    Page (*create)(GmTabDevice& tab);
};

template <class Class>
Page create(GmTabDevice& tab)
{
    return std::make_unique<Class>(tab);
}

constexpr PageClass pageClasses[] = {
    {eCollating, &create<CCollating>},           {eVectorGraphics, &create<CVectorGraphics>},
    {eRasterGraphics, &create<CRasterGraphics>}, {eTrueType, &create<CTrueType>},
    {eMergeCtrl, &create<CMergeCtrl>},           {eCustomProp, &create<CCustomProp>},
};

// Each row with a dialog has one class; the others have none.
static_assert(std::ranges::all_of(deviceRows,
                                  [](const GmDeviceRow& row) {
                                      return std::ranges::count(pageClasses, row.type, &PageClass::type) ==
                                             (row.dialog ? 1 : 0);
                                  }));
} // namespace

Page createDevicePage(std::int32_t type, GmTabDevice& tab)
{
    const auto* const found = std::ranges::find(pageClasses, type, &PageClass::type);
    if (found == std::end(pageClasses))
        return nullptr;
    Page page = found->create(tab);
    return page->createInFrame() ? std::move(page) : nullptr;
}
