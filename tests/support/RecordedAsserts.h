#pragma once

#include "kernel/OdAssert.h"

#include <string>
#include <vector>

// Records reported assertions as "text | file" while the object exists. Only one object at a time.
class RecordedAsserts
{
public:
    RecordedAsserts() : m_before(odSetAssertHandler(&record)) { reports().clear(); }
    ~RecordedAsserts() { odSetAssertHandler(m_before); }

    RecordedAsserts(const RecordedAsserts&) = delete;
    RecordedAsserts& operator=(const RecordedAsserts&) = delete;

    static std::vector<std::string>& reports()
    {
        static std::vector<std::string> instance;
        return instance;
    }

private:
    static void record(const char* text, const char* file, int)
    {
        reports().push_back(std::string(text) + " | " + file);
    }

    OdAssertHandler m_before;
};
