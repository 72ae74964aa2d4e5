#pragma once

#include "kernel/OdError.h"

#include <optional>

// The code of the OdError that work throws; nothing if it throws none.
template <class Work>
std::optional<OdResult> errorCodeOf(Work work)
{
    try
    {
        work();
        return std::nullopt;
    }
    catch (const OdError& error)
    {
        return error.code();
    }
}
