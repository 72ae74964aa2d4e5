#include "kernel/OdAssert.h"

#include <atomic>
#include <cstdio>

namespace
{
void writeToStandardError(const char* text, const char* file, int line)
{
    std::fprintf(stderr, "Assertion failed: %s (%s:%d)\n", text, file, line);
}

std::atomic<OdAssertHandler> currentHandler{&writeToStandardError};
} // namespace

OdAssertHandler odSetAssertHandler(OdAssertHandler handler) noexcept
{
    return currentHandler.exchange(handler ? handler : &writeToStandardError);
}

void odReportAssert(const char* text, const char* file, int line) noexcept
{
    try
    {
        currentHandler.load()(text, file, line);
    }
    catch (...)
    {
        // The handler is the host's code; whatever it does, a report must not change how the program continues.
    }
}
