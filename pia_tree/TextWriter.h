#pragma once

#include "files/ByteBuffer.h"

class CPBlock;

namespace pia
{
// The text of a tree, children in stored order. Returns null on success, otherwise the reason in plain English why no
// reader would return this tree.
const char* writeText(const CPBlock& root, files::ByteBuffer& text);
} // namespace pia
