#pragma once

#include "kernel/OdAssert.h"

#include <string>
#include <vector>

// Collects the assertions that are reported while it lives. One at a time, from one thread.
class AssertRecorder
{
public:
    struct Report
    {
        std::string text;
        std::string file;
        int line;
    };

    AssertRecorder() : m_before(odSetAssertHandler(&record)) { reports().clear(); }
    ~AssertRecorder() { odSetAssertHandler(m_before); }
    AssertRecorder(const AssertRecorder&) = delete;
    AssertRecorder& operator=(const AssertRecorder&) = delete;

    static std::vector<Report>& reports()
    {
        static std::vector<Report> all;
        return all;
    }

    // The texts alone, in the order of reporting.
    static std::vector<std::string> texts()
    {
        std::vector<std::string> result;
        for (const Report& report : reports())
            result.push_back(report.text);
        return result;
    }

private:
    static void record(const char* text, const char* file, int line) { reports().push_back({text, file, line}); }

    OdAssertHandler m_before;
};
