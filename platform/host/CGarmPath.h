#pragma once

#include "files/PathStart.h"

// A path split into its parts, of any length. Both "/" and "\" separate folders, on every platform, and the parts
// joined together yield the path again:
//
//   "C:\plots\A0.ctb.pc3" is drive "C:", folder "\plots\", name "A0.ctb", extension ".pc3".
//
// A drive is one letter and a colon. The folder ends in its separator. The extension starts at the last dot of the file
// name and includes it, so ".pc3" has an empty name and "A0." has the extension ".".
class CGarmPath
{
public:
    CGarmPath() = default;
    explicit CGarmPath(const OdString& path);

    const OdString& drive() const noexcept { return m_drive; }
    const OdString& folder() const noexcept { return m_folder; }
    const OdString& name() const noexcept { return m_name; }
    const OdString& extension() const noexcept { return m_extension; }

    // Name and extension.
    OdString fileName() const { return m_name + m_extension; }

    // Drive and folder, with a separator at the end if there is a folder.
    OdString fullFolder() const { return m_drive + m_folder; }

    OdString path() const { return fullFolder() + fileName(); }

    // False for a bare file name.
    bool hasFolder() const noexcept { return !m_drive.isEmpty() || !m_folder.isEmpty(); }

    // joinPath and isPathSeparator under the names that the host's kit has for them.
    static OdString join(const OdString& folder, const OdString& fileName) { return joinPath(folder, fileName); }
    static constexpr bool isSeparator(OdChar c) noexcept { return isPathSeparator(c); }

private:
    OdString m_drive;
    OdString m_folder;
    OdString m_name;
    OdString m_extension;
};
