#pragma once

// Our own declarations of the Win32 names that portable code uses, with the values and layouts of Windows x64. Names
// that portable code does not need are left out. Constants are objects, not macros, so that nothing can be compiled
// conditionally on them.

#include <cstdint>

#define WINAPI
#define CALLBACK

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using INT = int;
using UINT = unsigned int;
using WCHAR = char16_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using ULONG_PTR = std::uintptr_t;
using LCID = DWORD;
using LANGID = WORD;

using PVOID = void*;
using LPVOID = void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;

using HANDLE = void*;
using LPHANDLE = HANDLE*;
using HDC = struct HDC__*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
inline constexpr int MAX_PATH = 260;

// -- Errors ----------------------------------------------------------------------------------------------------------

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_INVALID_LEVEL = 124;
inline constexpr DWORD ERROR_INVALID_FLAGS = 1004;
inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD RPC_S_SERVER_UNAVAILABLE = 1722;
inline constexpr DWORD ERROR_UNKNOWN_PRINTER_DRIVER = 1797;
inline constexpr DWORD ERROR_INVALID_PRINTER_NAME = 1801;
inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

// -- Device modes ----------------------------------------------------------------------------------------------------

inline constexpr int CCHDEVICENAME = 32;
inline constexpr int CCHFORMNAME = 32;

// Only the printer's half of the structure's unions; this product does not handle display settings.
struct DEVMODEW
{
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    short dmOrientation;
    short dmPaperSize;
    short dmPaperLength;
    short dmPaperWidth;
    short dmScale;
    short dmCopies;
    short dmDefaultSource;
    short dmPrintQuality;
    short dmColor;
    short dmDuplex;
    short dmYResolution;
    short dmTTOption;
    short dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    union
    {
        DWORD dmDisplayFlags;
        DWORD dmNup;
    };
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
using PDEVMODEW = DEVMODEW*;
using LPDEVMODEW = DEVMODEW*;

inline constexpr WORD DM_SPECVERSION = 0x0401;

// dmFields
inline constexpr DWORD DM_ORIENTATION = 0x00000001;
inline constexpr DWORD DM_PAPERSIZE = 0x00000002;
inline constexpr DWORD DM_PAPERLENGTH = 0x00000004;
inline constexpr DWORD DM_PAPERWIDTH = 0x00000008;
inline constexpr DWORD DM_SCALE = 0x00000010;
inline constexpr DWORD DM_POSITION = 0x00000020;
inline constexpr DWORD DM_NUP = 0x00000040;
inline constexpr DWORD DM_DISPLAYORIENTATION = 0x00000080;
inline constexpr DWORD DM_COPIES = 0x00000100;
inline constexpr DWORD DM_DEFAULTSOURCE = 0x00000200;
inline constexpr DWORD DM_PRINTQUALITY = 0x00000400;
inline constexpr DWORD DM_COLOR = 0x00000800;
inline constexpr DWORD DM_DUPLEX = 0x00001000;
inline constexpr DWORD DM_YRESOLUTION = 0x00002000;
inline constexpr DWORD DM_TTOPTION = 0x00004000;
inline constexpr DWORD DM_COLLATE = 0x00008000;
inline constexpr DWORD DM_FORMNAME = 0x00010000;
inline constexpr DWORD DM_LOGPIXELS = 0x00020000;
inline constexpr DWORD DM_BITSPERPEL = 0x00040000;
inline constexpr DWORD DM_PELSWIDTH = 0x00080000;
inline constexpr DWORD DM_PELSHEIGHT = 0x00100000;
inline constexpr DWORD DM_DISPLAYFLAGS = 0x00200000;
inline constexpr DWORD DM_DISPLAYFREQUENCY = 0x00400000;
inline constexpr DWORD DM_ICMMETHOD = 0x00800000;
inline constexpr DWORD DM_ICMINTENT = 0x01000000;
inline constexpr DWORD DM_MEDIATYPE = 0x02000000;
inline constexpr DWORD DM_DITHERTYPE = 0x04000000;
inline constexpr DWORD DM_PANNINGWIDTH = 0x08000000;
inline constexpr DWORD DM_PANNINGHEIGHT = 0x10000000;

inline constexpr short DMORIENT_PORTRAIT = 1;
inline constexpr short DMORIENT_LANDSCAPE = 2;

inline constexpr short DMPAPER_LETTER = 1;
inline constexpr short DMPAPER_A3 = 8;
inline constexpr short DMPAPER_A4 = 9;
inline constexpr short DMPAPER_USER = 256;

inline constexpr short DMBIN_UPPER = 1;
inline constexpr short DMBIN_AUTO = 7;
inline constexpr short DMBIN_FORMSOURCE = 15;

inline constexpr short DMRES_DRAFT = -1;
inline constexpr short DMRES_LOW = -2;
inline constexpr short DMRES_MEDIUM = -3;
inline constexpr short DMRES_HIGH = -4;

inline constexpr short DMCOLOR_MONOCHROME = 1;
inline constexpr short DMCOLOR_COLOR = 2;

inline constexpr short DMDUP_SIMPLEX = 1;
inline constexpr short DMDUP_VERTICAL = 2;
inline constexpr short DMDUP_HORIZONTAL = 3;

inline constexpr short DMTT_BITMAP = 1;
inline constexpr short DMTT_DOWNLOAD = 2;
inline constexpr short DMTT_SUBDEV = 3;
inline constexpr short DMTT_DOWNLOAD_OUTLINE = 4;

inline constexpr short DMCOLLATE_FALSE = 0;
inline constexpr short DMCOLLATE_TRUE = 1;

inline constexpr DWORD DMICMMETHOD_NONE = 1;
inline constexpr DWORD DMICMMETHOD_SYSTEM = 2;
inline constexpr DWORD DMICMMETHOD_DRIVER = 3;
inline constexpr DWORD DMICMMETHOD_DEVICE = 4;

inline constexpr DWORD DMICM_SATURATE = 1;
inline constexpr DWORD DMICM_CONTRAST = 2;
inline constexpr DWORD DMICM_COLORIMETRIC = 3;
inline constexpr DWORD DMICM_ABS_COLORIMETRIC = 4;

inline constexpr DWORD DMMEDIA_STANDARD = 1;
inline constexpr DWORD DMMEDIA_TRANSPARENCY = 2;
inline constexpr DWORD DMMEDIA_GLOSSY = 3;

inline constexpr DWORD DMDITHER_NONE = 1;
inline constexpr DWORD DMDITHER_COARSE = 2;
inline constexpr DWORD DMDITHER_FINE = 3;
inline constexpr DWORD DMDITHER_LINEART = 4;
inline constexpr DWORD DMDITHER_ERRORDIFFUSION = 5;
inline constexpr DWORD DMDITHER_GRAYSCALE = 10;

// Modes of DocumentPropertiesW
inline constexpr DWORD DM_OUT_BUFFER = 2;
inline constexpr DWORD DM_IN_PROMPT = 4;
inline constexpr DWORD DM_IN_BUFFER = 8;

// Capabilities for DeviceCapabilitiesW
inline constexpr WORD DC_FIELDS = 1;
inline constexpr WORD DC_PAPERS = 2;
inline constexpr WORD DC_PAPERSIZE = 3;
inline constexpr WORD DC_MINEXTENT = 4;
inline constexpr WORD DC_MAXEXTENT = 5;
inline constexpr WORD DC_BINS = 6;
inline constexpr WORD DC_DUPLEX = 7;
inline constexpr WORD DC_SIZE = 8;
inline constexpr WORD DC_EXTRA = 9;
inline constexpr WORD DC_BINNAMES = 12;
inline constexpr WORD DC_ENUMRESOLUTIONS = 13;
inline constexpr WORD DC_PAPERNAMES = 16;
inline constexpr WORD DC_COPIES = 18;
inline constexpr WORD DC_COLORDEVICE = 32;

// -- Device contexts -------------------------------------------------------------------------------------------------

inline constexpr int HORZSIZE = 4;
inline constexpr int VERTSIZE = 6;
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int PLANES = 14;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
inline constexpr int PHYSICALWIDTH = 110;
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;
inline constexpr int PHYSICALOFFSETY = 113;

// -- Spooler ---------------------------------------------------------------------------------------------------------

inline constexpr DWORD PRINTER_ENUM_DEFAULT = 0x01;
inline constexpr DWORD PRINTER_ENUM_LOCAL = 0x02;
inline constexpr DWORD PRINTER_ENUM_CONNECTIONS = 0x04;
inline constexpr DWORD PRINTER_ENUM_NAME = 0x08;
inline constexpr DWORD PRINTER_ENUM_REMOTE = 0x10;
inline constexpr DWORD PRINTER_ENUM_SHARED = 0x20;
inline constexpr DWORD PRINTER_ENUM_NETWORK = 0x40;

inline constexpr DWORD PRINTER_ATTRIBUTE_DEFAULT = 0x04;
inline constexpr DWORD PRINTER_ATTRIBUTE_NETWORK = 0x10;
inline constexpr DWORD PRINTER_ATTRIBUTE_LOCAL = 0x40;

using PSECURITY_DESCRIPTOR = void*;

struct PRINTER_DEFAULTSW
{
    LPWSTR pDatatype;
    LPDEVMODEW pDevMode;
    DWORD DesiredAccess;
};
using LPPRINTER_DEFAULTSW = PRINTER_DEFAULTSW*;

struct PRINTER_INFO_1W
{
    DWORD Flags;
    LPWSTR pDescription;
    LPWSTR pName;
    LPWSTR pComment;
};

struct PRINTER_INFO_2W
{
    LPWSTR pServerName;
    LPWSTR pPrinterName;
    LPWSTR pShareName;
    LPWSTR pPortName;
    LPWSTR pDriverName;
    LPWSTR pComment;
    LPWSTR pLocation;
    LPDEVMODEW pDevMode;
    LPWSTR pSepFile;
    LPWSTR pPrintProcessor;
    LPWSTR pDatatype;
    LPWSTR pParameters;
    PSECURITY_DESCRIPTOR pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
};

struct PRINTER_INFO_4W
{
    LPWSTR pPrinterName;
    LPWSTR pServerName;
    DWORD Attributes;
};

struct PRINTER_INFO_5W
{
    LPWSTR pPrinterName;
    LPWSTR pPortName;
    DWORD Attributes;
    DWORD DeviceNotSelectedTimeout;
    DWORD TransmissionRetryTimeout;
};

struct DRIVER_INFO_3W
{
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
    LPWSTR pHelpFile;
    LPWSTR pDependentFiles;
    LPWSTR pMonitorName;
    LPWSTR pDefaultDataType;
};

// -- Windows, messages, texts ----------------------------------------------------------------------------------------

inline constexpr UINT WM_USER = 0x0400;

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr LCID LOCALE_INVARIANT = 0x007F;
inline constexpr DWORD NORM_IGNORECASE = 0x00000001;
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;

extern "C"
{
    BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults);
    BOOL WINAPI ClosePrinter(HANDLE printer);
    BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);
    BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer, DWORD size,
                                  LPDWORD needed);
    BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                              LPDWORD returned);
    LONG WINAPI DocumentPropertiesW(HWND owner, HANDLE printer, LPWSTR name, PDEVMODEW output, PDEVMODEW input,
                                    DWORD mode);
    int WINAPI DeviceCapabilitiesW(LPCWSTR device, LPCWSTR port, WORD capability, LPWSTR output,
                                   const DEVMODEW* devMode);

    HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const DEVMODEW* devMode);
    int WINAPI GetDeviceCaps(HDC dc, int index);
    BOOL WINAPI DeleteDC(HDC dc);

    BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
    int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int capacity);

    int WINAPI CompareStringW(LCID locale, DWORD flags, LPCWSTR a, int lengthA, LPCWSTR b, int lengthB);
    DWORD WINAPI GetLastError();
    void WINAPI SetLastError(DWORD error);
}
