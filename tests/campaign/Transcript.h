#pragma once

#include "common/Json.h"

#include <string>
#include <vector>

namespace campaign
{
using apps::Json;

// A call to the spooler or a driver, as it was made: its name, what it was given and what it answered.
struct Call
{
    std::string name;
    Json given;
    Json answered;
};

// What is found out about one queue: lines of JSON on standard output, each written at once, so that a crash leaves
// everything before it, and the step it happened in.
class Transcript
{
public:
    // {"step": NAME}: what follows happens in it.
    void step(const char* name);
    // {"fact": NAME, "value": ...}: something to be counted or listed, neither good nor bad.
    void fact(const char* name, const Json& value);
    // {"check": NAME, "held": true}
    void held(const char* check);
    // The same with "rule": what is reported follows from a rule that hosts build on, and would be wrong without it.
    void heldByRule(const char* check, const char* rule);
    // {"check": NAME, "held": false, "why": ..., "calls": [...]}: the calls that decided, the last of them refused.
    void failed(const char* check, const std::string& why, const std::vector<Call>& calls);

    // isHeld. Failed when it is false; what is asked in several parts is held only after the last of them.
    bool require(const char* name, bool isHeld, const std::string& why, const std::vector<Call>& calls);

private:
    void write(const Json& line);
};
} // namespace campaign
