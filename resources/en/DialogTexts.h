// English texts of the dialogs, in the order of Dialogs.rc. "&" marks the access key; keys are unique among what is on
// screen together.

#define TXT_OK "OK"
#define TXT_CANCEL "Cancel"

// General tab
#define TXT_TAB_GENERAL "General"
#define TXT_DESCRIPTION "&Description:"
#define TXT_DRIVER_GROUP "Driver"
#define TXT_DRIVER_FILE "File:"
#define WIDTH_DRIVER_FILE 17
#define TXT_PRINTER_GROUP "Printer"
#define TXT_INSTALLED_PRINTERS "Installed printers:"
#define TXT_PRINTERS_HINT "The printer of a configuration is not changed here. To use another printer, create a configuration for that printer."

// Device tab and its pages
#define TXT_TAB_DEVICE "Device and document settings"
#define TXT_SETTINGS "&Settings:"
#define TXT_SAVE_AS "Save &As..."
#define TXT_DEFAULTS "&Defaults"

#define TXT_VECTOR_GROUP "Vector graphics"
#define TXT_COLORS "Colors:"
#define TXT_MONOCHROME "Monochrome"
#define TXT_COLOR "Color"
#define TXT_RESOLUTION "Resolution:"
#define TXT_DITHERING "Dithering:"
#define TXT_VECTOR_HINT "These values come from the printer driver. To change them, use the driver's own settings under Custom properties."

#define TXT_RASTER_GROUP "Raster graphics"
#define TXT_ISM_MAX "&Raster images:"
#define TXT_OLE_MAX "&OLE objects:"
#define TXT_PREFERENCE "&Preference:"
#define TXT_DRAFT "Draft"
#define TXT_BEST "Best"
#define TXT_SPEED "Speed"
#define TXT_QUALITY_END "Quality"

#define TXT_COLLATING_GROUP "Collating"
#define TXT_COPIES "&Copies:"
#define TXT_COLLATING_HINT "Collated copies of several sheets come out set by set, others sheet by sheet."

#define TXT_TRUETYPE_GROUP "TrueType text"
#define TXT_AS_TEXT "Plot as &text"
#define TXT_AS_GRAPHICS "Plot as &graphics"
#define TXT_TRUETYPE_HINT "Text is left to the device's fonts and plots faster. Graphics look the same on every device."

#define TXT_MERGE_GROUP "Merge control"
#define TXT_OVERWRITE "Lines &overwrite"
#define TXT_MERGE "Lines &merge"
#define TXT_MERGE_HINT "Where lines cross, the one drawn last covers the others, or their colors are mixed."

#define TXT_CUSTOM_GROUP "Custom properties"
#define TXT_CUSTOM_WHAT "The printer driver has settings of its own, such as paper, quality and color. The button opens them."
#define TXT_CUSTOM_BUTTON "&Custom properties..."
#define TXT_CUSTOM_HINT "It has no effect for a configuration that does not use a Windows printer."

// Name of a changed configuration
#define TXT_NAME_CAPTION "Save plotter configuration"
#define TXT_NAME_WHAT "The configuration was changed. Under which name should it be saved in the folder of plotter configurations?"
#define TXT_NAME "&Name:"

// Properties of the virtual printers
#define TXT_PAPER "&Paper:"
#define TXT_QUALITY "&Quality:"
#define TXT_CUSTOM_SIZE "Custom size"
#define TXT_WIDTH "&Width:"
#define TXT_LENGTH "&Length:"
#define TXT_MILLIMETRES "&Millimeters"
#define TXT_INCHES "&Inches"
#define TXT_ORIENTATION "Orientation"
#define TXT_PORTRAIT "P&ortrait"
#define TXT_LANDSCAPE "L&andscape"
