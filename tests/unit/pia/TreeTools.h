#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/CPIAParser.h"
#include "pia_tree/CPValue.h"

#include <optional>
#include <string>
#include <string_view>

constexpr std::string_view plainFirstLine = "PIAFILEVERSION_2.0,PC3VER1\r\n";
constexpr std::string_view compressedFirstLine = "PIAFILEVERSION_2.0,PC3VER1,compress\r\n";

// A plain file with this text.
std::string plainFile(std::string_view text);

// A compressed file with this text, built without the code under test.
std::string compressedFile(std::string_view text);
std::string zlibStream(std::string_view text);
std::string littleEndian(unsigned number);

template <class Item, class... Value>
void addTo(CPBlock& block, Value&&... value)
{
    block.add(OdSharedPtr<CPItem>(new Item(std::forward<Value>(value)...)));
}

// The result of a getter, or nothing if it fails. A getter that fails but changes its output gives that output.
std::optional<OdString> strOf(const CPBlock& block, OdStringView name);
std::optional<std::int32_t> intOf(const CPBlock& block, OdStringView name);
std::optional<double> dblOf(const CPBlock& block, OdStringView name);
std::optional<bool> boolOf(const CPBlock& block, OdStringView name);

// One line per item with kind, name and value in a notation of its own: two trees are equal exactly if their
// descriptions are. Uses data().
std::string describe(const CPBlock& block);

// The description of the tree in a file, or "refused: REASON (line N)".
std::string describeFile(std::string_view file);
