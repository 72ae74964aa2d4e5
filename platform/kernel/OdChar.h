#pragma once

#include <string>
#include <string_view>

// UTF-16 everywhere. Windows has it as wchar_t; elsewhere wchar_t is 32 bits wide and making it shorter breaks the
// standard library, so char16_t stands in.
#ifdef _WIN32
using OdChar = wchar_t;
#define OD_T(text) L##text
#else
using OdChar = char16_t;
#define OD_T(text) u##text
#endif

static_assert(sizeof(OdChar) == 2);

using OdStringView = std::basic_string_view<OdChar>;
