#include "host/windows/LibrarySearch.h"

#include "host/CGarmPath.h"
#include "host/windows/ModuleFile.h"

void dropCurrentFolderFromSearch()
{
    // Any folder set here replaces the current one; the program's own is searched first anyway. On Windows an empty
    // text would do the same, but Wine reads it as "as before".
    ::SetDllDirectoryW(CGarmPath(moduleFileName(nullptr)).fullFolder().c_str());
}
