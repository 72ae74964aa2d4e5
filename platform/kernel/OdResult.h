#pragma once

// What an OdError says. The numbers that callers outside the kernel know are 0, 3 and 5; the rest only have names.
enum OdResult : int
{
    eOk = 0,
    eInvalidInput = 3,
    eNullObjectPointer = 5,

    eNotThatKindOfClass = 100,
    eInvalidResBuf, // a result buffer holds a value of another kind
};

// How a routine that registers or removes commands ends.
enum OdRoutineResult : int
{
    eRoutineError = -5001,
    eRoutineNormal = 5100,
};

// One line in English for a code; never null, also for a number that is no code.
const char* odResultText(OdResult code) noexcept;
