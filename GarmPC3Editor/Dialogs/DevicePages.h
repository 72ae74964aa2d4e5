#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

#include <memory>

// A new page for a kind of tree entry, created and placed in the tab's frame; null for kinds without a page and when
// the window cannot be created.
std::unique_ptr<GmDeviceSubDlg> createDevicePage(std::int32_t type, GmTabDevice& tab);
