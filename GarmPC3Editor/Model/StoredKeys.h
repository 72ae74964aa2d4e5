#pragma once

#include "kernel/OdText.h"

// The keys under which the custom data of a configuration stores the parts of its printer's DEVMODEW.
namespace storedDevMode
{
// Numbers.
inline constexpr OdStringView size = OD_T("dmSize");
inline constexpr OdStringView driverExtra = OD_T("dmDriverExtra");
inline constexpr OdStringView specVersion = OD_T("dmSpecVersion");
inline constexpr OdStringView mediaType = OD_T("dmMediaType");
inline constexpr OdStringView defaultSource = OD_T("dmDefaultSource");
inline constexpr OdStringView ttOption = OD_T("dmTTOption");
inline constexpr OdStringView paperSize = OD_T("dmPaperSize");

// Binary data.
inline constexpr OdStringView privateBytes = OD_T("RawPrivateDeviceData");

inline constexpr OdStringView allKeys[] = {size,          driverExtra, specVersion, mediaType,
                                           defaultSource, ttOption,    paperSize,   privateBytes};
} // namespace storedDevMode
