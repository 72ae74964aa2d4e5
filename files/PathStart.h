#pragma once

#include "kernel/OdString.h"

#include <cstddef>

// What a path of Windows begins with. Decided by the text alone, so the answer is the same on every platform and for
// paths that come from another machine. "/" and "\" are the same here.
enum class PathKind
{
    relative,      // "A0.pc3", "plots\A0.pc3", "..\A0.pc3", ""
    rooted,        // "\plots\A0.pc3": from the root of the current drive
    driveRelative, // "C:A0.pc3": from the current folder of that drive
    drive,         // "C:\plots\A0.pc3"
    share,         // "\\srv\plots\A0.pc3"
    extended,      // "\\?\C:\plots\A0.pc3": the system takes it as it is, of any length
    extendedShare, // "\\?\UNC\srv\plots\A0.pc3"
    device,        // "\\.\COM1"
    deviceName,    // "NUL", "plots\com1.pc3": the system opens a device, whatever the folder and the extension
};

struct PathStart
{
    PathKind kind = PathKind::relative;

    // How much of the text is its root, with the separator at the end: "C:\", "\\srv\plots\", "\\?\C:\". Nothing above
    // it can be named, so no parent goes beyond it.
    std::size_t rootLength = 0;
};

PathStart pathStart(OdStringView path) noexcept;

constexpr bool isPathSeparator(OdChar c) noexcept
{
    return c == '/' || c == '\\';
}

// Whether a path of this kind may be put behind a folder. Every other one has a place of its own.
constexpr bool isJoinable(PathKind kind) noexcept
{
    return kind == PathKind::relative;
}

// Folder and file name with one "\" between them ("/" where that is the system's separator). An empty folder gives the
// file name alone; a folder that ends in a separator or a colon gets no other.
OdString joinPath(const OdString& folder, const OdString& fileName);

// The folder that a file or folder is in, without a separator at its end unless it is a root: "C:\plots\A0.pc3" gives
// "C:\plots", "\\srv\plots\A0.pc3" gives "\\srv\plots\". Empty for a bare name; a root gives itself.
OdString parentFolder(const OdString& path);

// The same path in the form that has no limit of length, for a full path with "\" between its parts. Other paths come
// back as they are.
OdString extendedPath(const OdString& full);
