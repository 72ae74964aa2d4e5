#pragma once

#include "kernel/OdString.h"

#include <cstddef>

// How a Windows path begins. Decided from the text alone, so the result is the same on every platform and for paths
// that come from another machine. "/" and "\" are equivalent here.
enum class PathKind
{
    relative,      // "A0.pc3", "plots\A0.pc3", "..\A0.pc3", ""
    rooted,        // "\plots\A0.pc3": from the root of the current drive
    driveRelative, // "C:A0.pc3": from the current folder of that drive
    drive,         // "C:\plots\A0.pc3"
    share,         // "\\srv\plots\A0.pc3"
    extended,      // "\\?\C:\plots\A0.pc3": passed to the system unchanged, of any length
    extendedShare, // "\\?\UNC\srv\plots\A0.pc3"
    device,        // "\\.\COM1"
    deviceName,    // "NUL", "plots\com1.pc3": the system opens a device, whatever the folder and the extension
};

struct PathStart
{
    PathKind kind = PathKind::relative;

    // How much of the text is its root, including the separator: "C:\", "\\srv\plots\", "\\?\C:\". Nothing above the
    // root can be named, so no parent goes beyond it.
    std::size_t rootLength = 0;
};

PathStart pathStart(OdStringView path) noexcept;

constexpr bool isPathSeparator(OdChar c) noexcept
{
    return c == '/' || c == '\\';
}

// Whether a path of this kind may be appended to a folder. All others have their own root.
constexpr bool isJoinable(PathKind kind) noexcept
{
    return kind == PathKind::relative;
}

// Folder and file name joined by one "\" ("/" where that is the system's separator). An empty folder yields the file
// name alone; a folder that ends in a separator or a colon gets no further one.
OdString joinPath(const OdString& folder, const OdString& fileName);

// The folder that contains a file or folder, without a trailing separator unless it is a root: "C:\plots\A0.pc3" yields
// "C:\plots", "\\srv\plots\A0.pc3" yields "\\srv\plots\". Empty for a bare name; a root yields itself.
OdString parentFolder(const OdString& path);

// The same path in the form without a length limit, for a full path with "\" between its parts. Other paths are
// returned unchanged.
OdString extendedPath(const OdString& full);
