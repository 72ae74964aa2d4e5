#pragma once

#include "files/ByteBuffer.h"

#include <string_view>

// The outside of a PC3 file: a first line that says what follows, then the text, compressed or as it is.
namespace pia
{
enum class Form
{
    compressed, // what the host writes
    plain,      // what a person edits and a version control system compares
};

// Both answer null after success, otherwise the reason in plain English. What they threw is std::bad_alloc.

// Takes the text out of a file. The numbers beside the compressed text are not trusted: a tool that edited the text
// may have left stale ones.
const char* unpack(files::ByteBuffer file, files::ByteBuffer& text);

const char* pack(std::string_view text, Form form, files::ByteBuffer& file);
} // namespace pia
