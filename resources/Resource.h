#pragma once

// Numbers in the language resource library. Macros, because the resource compiler reads this file too.

// Dialogs
#define IDD_GENERAL 103
#define IDD_DEVICE 105
#define IDD_CHANGE_CFG 106
#define IDD_VECTOR_GRAPHICS 107
#define IDD_CUSTOM_PROP 108
#define IDD_RASTER_GRAPHICS 109
#define IDD_COLLATING 110
#define IDD_TRUETYPE 111
#define IDD_MERGE_CTRL 112
#define IDD_VIRTUAL_PRINTER 10110

// Strings of the sheet and its tabs
#define IDS_SHEET_TITLE 102           // %s: file title
#define IDS_PRINTER_NOT_INSTALLED 103 // %s: printer name
#define IDS_SAVE_FAILED 201
#define IDS_COLLATING_OFF 202
#define IDS_COLLATING_ON 203
#define IDS_EXTENSION_ADDED 204
#define IDS_SAVE_FILTER 206
#define IDS_TAB_GENERAL 208
#define IDS_SYSTEM_DRIVER 209
#define IDS_FILE_DRIVER 210 // %s %s: family and model
#define IDS_VERSION 211
#define IDS_PORT 213
#define IDS_PORT_AUTOSPOOL 214
#define IDS_PORT_FILE 215
#define IDS_TAB_DEVICE 216
#define IDS_DESCRIPTION_CUT 242

// Strings of the device tree. "Value" strings format what follows an entry's name.
#define IDS_MEDIA 217
#define IDS_MEDIA_DEST 218
#define IDS_SOURCE_SIZE 219
#define IDS_GRAPHICS 220
#define IDS_COLLATING 221
#define IDS_VECTOR_GRAPHICS 222
#define IDS_RASTER_GRAPHICS 223
#define IDS_TRUETYPE 224
#define IDS_CUSTOM_PROP 225
#define IDS_SIZE_VALUE 227 // %s
#define IDS_MERGE_CTRL 228
#define IDS_COLORS_VALUE 230     // %s: IDS_COLORS_AND_DEPTH
#define IDS_COLORS_AND_DEPTH 231 // %d %d: number of colours, depth
#define IDS_RESOLUTION_VALUE 232 // %s
#define IDS_DITHERING_VALUE 233  // %s
#define IDS_PREFERENCE_VALUE 234 // %d
#define IDS_ISM_MAX_VALUE 235    // %d
#define IDS_OLE_MAX_VALUE 236    // %d
#define IDS_TRUETYPE_AS_TEXT 237
#define IDS_TRUETYPE_AS_GRAPHICS 238
#define IDS_LINES_OVERWRITE 239
#define IDS_LINES_MERGE 240
#define IDS_RESET_QUESTION 241

// Print qualities of the virtual printers, from 72 to 1200 dots per inch
#define IDS_QUALITY_72 10125
#define IDS_QUALITY_150 10126
#define IDS_QUALITY_300 10127
#define IDS_QUALITY_600 10128
#define IDS_QUALITY_1200 10129

// What is shown beside the fields of a custom size
#define IDS_LIMIT_MILLIMETRES 10133 // %s: length
#define IDS_LIMIT_INCHES 10134      // %s: length
#define IDS_LENGTH_TOO_LARGE 10135  // %s: one of the two above

// Command names
#define IDS_COMMAND_PC3EDIT 3000
#define IDS_COMMAND_PC3GETDEVMODE 3002

// The window library's message for a number field: its AFX_IDP_PARSE_REAL (0xF111)
#define IDS_NO_NUMBER 61713

// Icons
#define IDI_SYSTEM_PRINTER 301
#define IDI_MEDIA 302
#define IDI_CUSTOM_PROP 303
#define IDI_GRAPHICS 304
#define IDI_FILE_PRINTER 305
#define IDI_SOURCE_SIZE 306
#define IDI_MEDIA_DEST 307
#define IDI_CHECKED 308
#define IDI_VECTOR_GRAPHICS 309
#define IDI_RASTER_GRAPHICS 310
#define IDI_COLLATING 311
#define IDI_TRUETYPE 312
#define IDI_MERGE_CTRL 313
#define IDI_HELP 2502

// Bitmaps
#define IDB_PORTRAIT 10111
#define IDB_LANDSCAPE 10114

// Controls of the General tab
#define IDC_DRIVER_ICON 315
#define IDC_DESCRIPTION 510
#define IDC_FILE_NAME 513
#define IDC_DRIVER 520
#define IDC_DRIVER_FILE 521
#define IDC_VERSION 522
#define IDC_PORT 523
#define IDC_PRINTERS 2501
#define IDC_DESCRIPTION_NOTE 534

// Controls of the device tab
#define IDC_SAVE_AS 506
#define IDC_TREE 508
#define IDC_DEFAULTS 532
#define IDC_PAGE_FRAME 533

// Controls of the pages. The vector page only displays: label 1 names the colours, in 502, 601 and 602; label 3 the
// resolution, in 503; label 4 the dithering, in 504.
#define IDC_PREFERENCE 501
#define IDC_COLOR_DEPTH 502
#define IDC_RESOLUTION 503
#define IDC_DITHERING 504
#define IDC_ISM_MAX 505
#define IDC_VECTOR_LABEL_4 509
#define IDC_VECTOR_LABEL_3 515
#define IDC_VECTOR_LABEL_1 516
#define IDC_DRIVER_SETTINGS 517
#define IDC_OLE_MAX 525
#define IDC_COLLATING 526
#define IDC_MONOCHROME 601
#define IDC_COLOR 602
#define IDC_TRUETYPE_AS_TEXT 603
#define IDC_TRUETYPE_AS_GRAPHICS 604
#define IDC_LINES_OVERWRITE 605
#define IDC_LINES_MERGE 606

// Controls of the name dialog
#define IDC_EXTENSION_NOTE 531
#define IDC_CFG_NAME 900

// Controls of the virtual printers' dialog
#define IDC_PAPER_LENGTH 10115
#define IDC_PAPER_WIDTH 10116
#define IDC_PAPER 10117
#define IDC_QUALITY 10118
#define IDC_PORTRAIT 10119
#define IDC_LANDSCAPE 10120
#define IDC_PORTRAIT_IMAGE 10121
#define IDC_LANDSCAPE_IMAGE 10122
#define IDC_MILLIMETRES 10123
#define IDC_INCHES 10124
#define IDC_CUSTOM_SIZE_FRAME 10130
#define IDC_WIDTH_NOTE 10131
#define IDC_LENGTH_NOTE 10132
