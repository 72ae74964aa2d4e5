#include "kernel/OdError.h"

const char* odResultText(OdResult code) noexcept
{
    switch (code)
    {
    case eOk:
        return "no error";
    case eInvalidInput:
        return "invalid input";
    case eNullObjectPointer:
        return "there is no such object";
    case eNotThatKindOfClass:
        return "the object is of another class";
    case eInvalidResBuf:
        return "the result buffer holds a value of another kind";
    }
    return "unknown error";
}

// The destructors are defined here so that type information and virtual table have one home, which host and module
// share.
OdError::~OdError() = default;

const char* OdError::what() const noexcept
{
    return odResultText(m_code);
}

OdError_NotThatKindOfClass::~OdError_NotThatKindOfClass() = default;
