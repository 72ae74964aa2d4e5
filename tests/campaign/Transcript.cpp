#include "campaign/Transcript.h"

#include <cstdio>

namespace campaign
{
void Transcript::step(const char* name)
{
    write({{"step", name}});
}

void Transcript::fact(const char* name, const Json& value)
{
    write({{"fact", name}, {"value", value}});
}

void Transcript::held(const char* check)
{
    write({{"check", check}, {"held", true}});
}

void Transcript::heldByRule(const char* check, const char* rule)
{
    write({{"check", check}, {"held", true}, {"rule", rule}});
}

void Transcript::failed(const char* check, const std::string& why, const std::vector<Call>& calls)
{
    Json list = Json::array();
    for (const Call& call : calls)
        list.push_back({{"call", call.name}, {"given", call.given}, {"answered", call.answered}});
    write({{"check", check}, {"held", false}, {"why", why}, {"calls", list}});
}

bool Transcript::require(const char* name, bool isHeld, const std::string& why, const std::vector<Call>& calls)
{
    if (!isHeld)
        failed(name, why, calls);
    return isHeld;
}

void Transcript::write(const Json& line)
{
    std::puts(line.dump(-1, ' ', false, Json::error_handler_t::replace).c_str());
    std::fflush(stdout);
}
} // namespace campaign
