#include "tests/win/module/ScriptedHost.h"

#include "host/GmLanguage.h"

#include <utility>

namespace
{
std::vector<HINSTANCE> answersLeft;
std::vector<LanguageRequest> requests;
} // namespace

void setLanguageAnswers(std::vector<HINSTANCE> answers)
{
    answersLeft = std::move(answers);
    requests.clear();
}

const std::vector<LanguageRequest>& languageRequests()
{
    return requests;
}

HINSTANCE GmLoadAppLangResourceDLL(HINSTANCE module, void* reserved1, GmLangReloadCallback callback, void* reserved2)
{
    requests.push_back({module, reserved1, callback, reserved2});
    if (answersLeft.empty())
        return nullptr;
    const HINSTANCE answer = answersLeft.front();
    answersLeft.erase(answersLeft.begin());
    return answer;
}
