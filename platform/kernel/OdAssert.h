#pragma once

// Assertions are part of the interface: their texts and files are fixed, they are alive in every build, and they
// report and return, so every assertion has a defined continuation.
//
// text: the asserted expression; file: the source file by its name in the layout, without extension; line: its line.
using OdAssertHandler = void (*)(const char* text, const char* file, int line);

// Replaces the handler of this process and returns the one before; null restores the default, which writes one line to
// standard error. Call it from one thread only.
OdAssertHandler odSetAssertHandler(OdAssertHandler handler) noexcept;

// Reports a failed assertion to the handler. What a handler throws does not get out.
void odReportAssert(const char* text, const char* file, int line) noexcept;

// For the usual case in which the expression is its own text; evaluates to whether it held.
#define OD_VERIFY(expression, file) ((expression) ? true : (odReportAssert(#expression, file, __LINE__), false))
