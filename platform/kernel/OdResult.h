#pragma once

// The code of an OdError. Callers outside the kernel know the numbers 0, 3 and 5; the others are known by name only.
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

// One line in English for a code; never null, even for an unknown number.
const char* odResultText(OdResult code) noexcept;
