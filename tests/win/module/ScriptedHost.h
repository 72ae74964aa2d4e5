#pragma once

#include "win32/Win32.h"

#include <vector>

// Stands in for the host's language libraries in a test program that links the module's application object.
struct LanguageRequest
{
    HINSTANCE module;
    void* reserved1;
    BOOL (*callback)();
    void* reserved2;
};

// The results of the next requests, in order; null when none is left.
void setLanguageAnswers(std::vector<HINSTANCE> answers);

// What came in since setLanguageAnswers.
const std::vector<LanguageRequest>& languageRequests();
