#pragma once

#include <optional>
#include <string>

// On Wine files have the owners, modes, access lists and extended attributes of the system below, which no Windows call
// can copy, links may lead to a file that does not exist, which no Windows call shows, and no Windows call replaces a
// file that is open in one step. That system's own tools can do all three. Paths are absolute.
namespace files::wine
{
// Whether this is Wine and the tools can be run.
bool hasTools() noexcept;

// Makes an empty file for us alone. False when it cannot be made.
bool makePrivate(const std::wstring& path);

// Gives such a file the owner, mode, access list and attributes of another one. False when something of these cannot be
// given; the file is then still for us alone.
bool giveRights(const std::wstring& path, const std::wstring& other);

// The file that a link leads to, over any number of links; it need not exist. Empty when that is in a folder that does
// not exist; nothing when the path is no link.
std::optional<std::wstring> endOfLink(const std::wstring& path);

// Gives a file another name in one step, in the place of a file that has it, whoever has that open.
bool rename(const std::wstring& from, const std::wstring& to);
} // namespace files::wine
