#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/Container.h"

#include <string>
#include <string_view>

// The bytes of a file with this tree; the test fails if it cannot be written.
std::string bytesOf(const CPBlock& root, pia::Form form);

// Checks in both forms that writing and reading the tree, and writing it once more, changes nothing.
void expectRoundTrip(const CPBlock& root);

// The invariant of every reader: it refuses the bytes, or reads a tree that survives a round trip.
void expectReadOrRefused(std::string_view bytes);
