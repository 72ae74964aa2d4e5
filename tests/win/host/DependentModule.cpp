__declspec(dllimport) int missingAnswer();

extern "C" __declspec(dllexport) int dependentAnswer()
{
    return missingAnswer();
}
