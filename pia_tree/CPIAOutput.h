#pragma once

#include "pia_tree/CPBlock.h"

#include <string>

// Writes a PC3 file, children in stored order. The file is replaced in one step: after a failure the old one is intact.
class CPIAOutput
{
public:
    bool write(const CPBlock& root, const OdChar* path);

    // Why the last write failed, in plain English for tools; "" after success.
    const char* reason() const noexcept;
};
