#pragma once

#include "files/ByteBuffer.h"

#include <string_view>

// The container of a PC3 file: a first line that says what follows, then the text, compressed or plain.
namespace pia
{
enum class Form
{
    compressed, // what the host writes
    plain,      // what a person edits and a version control system compares
};

// Both return null on success, otherwise the reason in plain English. They throw only std::bad_alloc.

// Extracts the text from a file. The numbers beside the compressed text are ignored (quirk 75).
const char* unpack(files::ByteBuffer file, files::ByteBuffer& text);

const char* pack(std::string_view text, Form form, files::ByteBuffer& file);
} // namespace pia
