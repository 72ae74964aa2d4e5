__declspec(dllexport) int missingAnswer();

int missingAnswer()
{
    return 42;
}
