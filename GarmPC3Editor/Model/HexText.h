#pragma once

#include "kernel/OdString.h"

#include <cstddef>
#include <span>

// Bytes as hexadecimal text: two upper-case digits per byte, in byte order.
OdString hexFromBytes(std::span<const unsigned char> bytes);

// Reads back one byte for each two characters, upper or lower case; a character that is no digit counts as 0. The text
// and out must fit each other (text.size() == 2 * out.size()); of two that do not, the shorter one decides, and the
// bytes beyond it are untouched.
void bytesFromHex(OdStringView text, std::span<unsigned char> out) noexcept;

// The same text with a to f as A to F; all other characters stay as they are.
OdString withUpperCaseHexDigits(OdString text);
