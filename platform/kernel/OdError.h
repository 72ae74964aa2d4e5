#pragma once

#include "kernel/OdResult.h"

#include <exception>

// A programming error, thrown from host to module and back. It holds no memory, so throwing one never fails for lack
// of it.
class OdError : public std::exception
{
public:
    explicit OdError(OdResult code) noexcept : m_code(code) {}
    ~OdError() override;

    OdResult code() const noexcept { return m_code; }

    // The text of the code.
    const char* what() const noexcept override;

private:
    OdResult m_code;
};

// An object is there but of another class than the caller needs.
class OdError_NotThatKindOfClass : public OdError
{
public:
    OdError_NotThatKindOfClass() noexcept : OdError(eNotThatKindOfClass) {}
    ~OdError_NotThatKindOfClass() override;
};
