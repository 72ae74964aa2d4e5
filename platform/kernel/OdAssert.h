#pragma once

// Assertions are part of the interface: their texts and file names are fixed, and they are active in every build. They
// report and return, so every assertion has a defined continuation.
//
// text: the asserted expression; file: the source file as hosts know it, without extension; line: its line.
using OdAssertHandler = void (*)(const char* text, const char* file, int line);

// Replaces this process's handler and returns the previous one; null restores the default, which writes one line to
// standard error. Call it from one thread only.
OdAssertHandler odSetAssertHandler(OdAssertHandler handler) noexcept;

// Reports a failed assertion to the handler. Exceptions from the handler are swallowed.
void odReportAssert(const char* text, const char* file, int line) noexcept;

// For the usual case in which the expression is its own text. Evaluates to whether the expression is true.
#define OD_VERIFY(expression, file) ((expression) ? true : (odReportAssert(#expression, file, __LINE__), false))
