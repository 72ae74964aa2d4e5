#pragma once

#include <string>
#include <string_view>

// UTF-16 everywhere. On Windows that is wchar_t. Elsewhere wchar_t has 32 bits, and shortening it breaks the standard
// library, so char16_t is used.
#ifdef _WIN32
using OdChar = wchar_t;
#define OD_T(text) L##text
#else
using OdChar = char16_t;
#define OD_T(text) u##text
#endif

static_assert(sizeof(OdChar) == 2);

using OdStringView = std::basic_string_view<OdChar>;
