#pragma once

// Numbers of the strings that this library loads from the current resource library. Macros only, because resource
// scripts use them too. If a library lacks one of them, the English text is used.

#define AFX_IDP_PARSE_REAL 0xF111 // "Please enter a number."

// The tab control of a property sheet; the number is defined by the system.
#define AFX_IDC_TAB_CONTROL 12320
