#pragma once

// Numbers of the strings that this library takes from the current resource library. Only macros: resource scripts use
// them too. A library without one of them gets the English text.

#define AFX_IDP_PARSE_REAL 0xF111 // "Please enter a number."

// The tab control of a property sheet: the number is the system's.
#define AFX_IDC_TAB_CONTROL 12320
