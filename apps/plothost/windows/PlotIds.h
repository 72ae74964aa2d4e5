#pragma once

#include "resources/HostControls.h"

// Numbers of the program's own dialog; macros, because the resource compiler reads them too.

#define IDI_PLOTHOST 100
#define IDD_PLOT 101

#define IDC_PLOT_DEVICE 1001
#define IDC_PLOT_PROPERTIES 1002
#define IDC_PLOT_STATE 1003
#define IDC_PLOT_DETAILS 1004
