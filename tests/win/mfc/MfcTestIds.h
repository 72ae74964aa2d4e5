#pragma once

// Numbers in the tests' resource library. Only macros: the resource script uses them too.

#define IDD_PLAIN 101
#define IDD_BROKEN 102
#define IDD_PAGE 103
#define IDD_HIDDEN 104
#define IDD_PLACED 105
#define IDD_EXCHANGE 106
#define IDD_CONTROLS 107
#define IDD_OLD_STYLE 108
#define IDD_FIRST_PAGE 110
#define IDD_SECOND_PAGE 111
#define IDD_MISSING 199

#define IDC_RUN 1000
#define IDC_TEXT 1001
#define IDC_NUMBER 1002
#define IDC_LIST 1003
#define IDC_FIRST_RADIO 1004
#define IDC_LABEL_BETWEEN 1005
#define IDC_SECOND_RADIO 1006
#define IDC_THIRD_RADIO 1007
#define IDC_OTHER_GROUP 1008
#define IDC_TREE 1009
#define IDC_SLIDER 1010
#define IDC_PICTURE 1011
#define IDC_PAGE_EDIT 1012
#define IDC_FRAME 1013
#define IDC_MISSING 1999

#define IDS_GREETING 1
#define IDS_FORMAT 2
#define IDS_MISSING 9
