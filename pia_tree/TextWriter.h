#pragma once

#include "files/ByteBuffer.h"

class CPBlock;

namespace pia
{
// The text of a tree, children in stored order. Answers null after success, otherwise the reason in plain English why
// no reader would give this tree back.
const char* writeText(const CPBlock& root, files::ByteBuffer& text);
} // namespace pia
