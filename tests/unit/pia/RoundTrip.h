#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/Container.h"

#include <string>
#include <string_view>

// The bytes of a file with this tree; a test failure when it cannot be written.
std::string bytesOf(const CPBlock& root, pia::Form form);

// Written in either form and read, the tree is the same, and written once more the file is.
void expectRoundTrip(const CPBlock& root);

// The invariant of every reader: any bytes are refused, or read, and then what is written from them reads back equal.
void expectReadOrRefused(std::string_view bytes);
