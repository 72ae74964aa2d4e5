#pragma once

#include "kernel/OdResult.h"

#include <exception>

// A programming error, thrown from host to module or back. It owns no memory, so throwing one cannot fail for lack of
// it.
class OdError : public std::exception
{
public:
    explicit OdError(OdResult code) noexcept : m_code(code) {}
    ~OdError() override;

    OdResult code() const noexcept { return m_code; }

    // The text for the code.
    const char* what() const noexcept override;

private:
    OdResult m_code;
};

// The object exists but is not of the class that the caller needs.
class OdError_NotThatKindOfClass : public OdError
{
public:
    OdError_NotThatKindOfClass() noexcept : OdError(eNotThatKindOfClass) {}
    ~OdError_NotThatKindOfClass() override;
};
