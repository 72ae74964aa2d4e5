#pragma once

// The Win32 names that portable code may use. On Windows they are the system's own. Elsewhere the same names are
// declared here, and the printer room defines the functions, so that one body of code and one set of tests serve both.
#include <Win32Names.h>

#include <cstddef>

// The bytes of a DEVMODEW come from drivers and files and go to drivers, so every field must be laid out identically on
// both platforms.
static_assert(sizeof(WCHAR) == 2 && sizeof(WORD) == 2 && sizeof(DWORD) == 4 && sizeof(BOOL) == 4 && sizeof(BYTE) == 1);
static_assert(sizeof(DEVMODEW) == 220 && alignof(DEVMODEW) == 4);
static_assert(offsetof(DEVMODEW, dmDeviceName) == 0 && sizeof(DEVMODEW::dmDeviceName) == 64);
static_assert(offsetof(DEVMODEW, dmSpecVersion) == 64);
static_assert(offsetof(DEVMODEW, dmDriverVersion) == 66);
static_assert(offsetof(DEVMODEW, dmSize) == 68);
static_assert(offsetof(DEVMODEW, dmDriverExtra) == 70);
static_assert(offsetof(DEVMODEW, dmFields) == 72);
static_assert(offsetof(DEVMODEW, dmOrientation) == 76);
static_assert(offsetof(DEVMODEW, dmPaperSize) == 78);
static_assert(offsetof(DEVMODEW, dmPaperLength) == 80);
static_assert(offsetof(DEVMODEW, dmPaperWidth) == 82);
static_assert(offsetof(DEVMODEW, dmScale) == 84);
static_assert(offsetof(DEVMODEW, dmCopies) == 86);
static_assert(offsetof(DEVMODEW, dmDefaultSource) == 88);
static_assert(offsetof(DEVMODEW, dmPrintQuality) == 90);
static_assert(offsetof(DEVMODEW, dmColor) == 92);
static_assert(offsetof(DEVMODEW, dmDuplex) == 94);
static_assert(offsetof(DEVMODEW, dmYResolution) == 96);
static_assert(offsetof(DEVMODEW, dmTTOption) == 98);
static_assert(offsetof(DEVMODEW, dmCollate) == 100);
static_assert(offsetof(DEVMODEW, dmFormName) == 102 && sizeof(DEVMODEW::dmFormName) == 64);
static_assert(offsetof(DEVMODEW, dmLogPixels) == 166);
static_assert(offsetof(DEVMODEW, dmBitsPerPel) == 168);
static_assert(offsetof(DEVMODEW, dmPelsWidth) == 172);
static_assert(offsetof(DEVMODEW, dmPelsHeight) == 176);
static_assert(offsetof(DEVMODEW, dmDisplayFlags) == 180 && offsetof(DEVMODEW, dmNup) == 180);
static_assert(offsetof(DEVMODEW, dmDisplayFrequency) == 184);
static_assert(offsetof(DEVMODEW, dmICMMethod) == 188);
static_assert(offsetof(DEVMODEW, dmICMIntent) == 192);
static_assert(offsetof(DEVMODEW, dmMediaType) == 196);
static_assert(offsetof(DEVMODEW, dmDitherType) == 200);
static_assert(offsetof(DEVMODEW, dmReserved1) == 204);
static_assert(offsetof(DEVMODEW, dmReserved2) == 208);
static_assert(offsetof(DEVMODEW, dmPanningWidth) == 212);
static_assert(offsetof(DEVMODEW, dmPanningHeight) == 216);

// The spooler's records, which are followed by their texts.
static_assert(sizeof(PRINTER_INFO_1W) == 32 && sizeof(PRINTER_INFO_2W) == 136 && sizeof(PRINTER_INFO_4W) == 24 &&
              sizeof(PRINTER_INFO_5W) == 32 && sizeof(DRIVER_INFO_3W) == 80);
