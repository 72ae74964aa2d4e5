#pragma once

#include "common/Json.h"

#include <string>
#include <vector>

namespace campaign
{
using apps::Json;

// A call to the spooler or a driver: its name, arguments and results.
struct Call
{
    std::string name;
    Json given;
    Json answered;
};

// The findings about one queue: lines of JSON on standard output, each flushed at once, so that after a crash
// everything before it and the failing step are known.
class Transcript
{
public:
    // {"step": NAME}: starts a step.
    void step(const char* name);
    // {"fact": NAME, "value": ...}: a result to be counted or listed, neither good nor bad.
    void fact(const char* name, const Json& value);
    // {"check": NAME, "held": true}
    void held(const char* check);
    // The same with "rule": the result would be wrong but for a rule that hosts rely on.
    void heldByRule(const char* check, const char* rule);
    // {"check": NAME, "held": false, "why": ..., "calls": [...]}: the calls that led to it; the last one failed.
    void failed(const char* check, const std::string& why, const std::vector<Call>& calls);

    // Reports a failure unless isHeld, and returns isHeld. A check with several parts calls held() after the last one.
    bool require(const char* name, bool isHeld, const std::string& why, const std::vector<Call>& calls);

private:
    void write(const Json& line);
};
} // namespace campaign
