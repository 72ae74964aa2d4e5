#pragma once

// Numbers of the program's own dialog; read by the resource compiler too, so macros.

#define IDI_PLOTHOST 100
#define IDD_PLOT 101

// What the module's dialog of the product's own printers looks for in the dialog that the editor was opened from.
#define IDC_PLOT_PAPER 6455
#define IDC_PLOT_PORTRAIT 6461
#define IDC_PLOT_LANDSCAPE 6462

#define IDC_PLOT_DEVICE 1001
#define IDC_PLOT_PROPERTIES 1002
#define IDC_PLOT_STATE 1003
#define IDC_PLOT_DETAILS 1004
