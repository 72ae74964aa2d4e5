#pragma once

// Controls of the host's dialog from which the editor is opened. The dialog of the virtual printers looks for them by
// number; resource scripts read this too, so macros.
#define IDC_HOST_PAPER 6455
#define IDC_HOST_PORTRAIT 6461
#define IDC_HOST_LANDSCAPE 6462
