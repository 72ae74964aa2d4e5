#pragma once

#include "kernel/OdString.h"

#include <cstddef>
#include <string>
#include <vector>

namespace editordriver
{
// One line of a script: a verb, and what follows it up to the end of the line.
struct ScriptLine
{
    std::size_t number = 0; // from 1
    std::string verb;
    std::string rest;
};

// The lines of a script (UTF-8) that say something; empty lines and those that begin with "#" do not. Throws
// std::runtime_error when the file cannot be read.
std::vector<ScriptLine> readScript(const OdString& path);

// Takes the first word off the text; empty when there is none.
std::string takeWord(std::string& text);

// The word as a number. Throws std::runtime_error when it is none.
int numberOf(const std::string& word);
} // namespace editordriver
