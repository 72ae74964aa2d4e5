#pragma once

#include <optional>
#include <string>

// Under Wine three things are out of reach of any Windows call: copying the owner, mode, access list and extended
// attributes that files have on the Unix side; seeing a link to a missing file; and replacing an open file in one step.
// Unix tools can do all three. Paths are absolute.
namespace files::wine
{
// Whether this is Wine and the tools can be run.
bool hasTools() noexcept;

// Creates an empty file that only this user may access. False if it cannot be created.
bool makePrivate(const std::wstring& path);

// Gives such a file the owner, mode, access list and attributes of another one. False if any of these cannot be set;
// the file is then still accessible to this user only.
bool giveRights(const std::wstring& path, const std::wstring& other);

// The file that a link leads to, through any number of links; it need not exist. Empty if it is in a folder that does
// not exist; nothing if the path is not a link.
std::optional<std::wstring> endOfLink(const std::wstring& path);

// Renames a file in one step, replacing a file with that name even if it is open.
bool rename(const std::wstring& from, const std::wstring& to);
} // namespace files::wine
