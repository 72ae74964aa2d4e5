#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPIAParser.h"
#include "pia_tree/CPValue.h"

#include <string>
#include <string_view>

constexpr std::string_view plainFirstLine = "PIAFILEVERSION_2.0,PC3VER1\r\n";
constexpr std::string_view compressedFirstLine = "PIAFILEVERSION_2.0,PC3VER1,compress\r\n";

// A file of the plain form with this text.
std::string plainFile(std::string_view text);

// A file of the compressed form with this text, made with nothing of ours.
std::string compressedFile(std::string_view text);
std::string zlibStream(std::string_view text);
std::string littleEndian(unsigned number);

template <class Item, class... Value>
void addTo(CPBlock& block, Value&&... value)
{
    block.add(OdSharedPtr<CPItem>(new Item(std::forward<Value>(value)...)));
}

// One line per item with kind, name and value in a notation of its own, so that two trees are equal exactly when their
// descriptions are. Walks by data().
std::string describe(const CPBlock& block);

// What the file holds, or "refused: REASON (line N)".
std::string describeFile(std::string_view file);
