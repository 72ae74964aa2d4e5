#pragma once

#include "pia_tree/CPBlock.h"

#include <memory>
#include <string_view>

// Reads a PC3 file. The root lives as long as the parser; after a failed read there is none.
class CPIAParser
{
public:
    CPIAParser();
    ~CPIAParser();
    CPIAParser(const CPIAParser&) = delete;
    CPIAParser& operator=(const CPIAParser&) = delete;

    bool read(const OdChar* path);
    // The same for bytes that were read elsewhere.
    bool parse(std::string_view bytes);

    // Null means that nothing was read.
    const CPBlock* root() const noexcept;

    // Why the last read failed, in plain English for tools ("" after success), and the line of the text it happened in
    // (1 is the first; 0 when it is not about a line).
    const char* reason() const noexcept;
    unsigned line() const noexcept;
};
