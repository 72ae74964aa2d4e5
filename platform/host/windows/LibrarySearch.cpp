#include "host/windows/LibrarySearch.h"

#include "host/CGarmPath.h"
#include "host/windows/ModuleFile.h"

void dropCurrentFolderFromSearch()
{
    // Whatever folder is set takes the place of the current one; the program's own is searched first anyway. An empty
    // text would do the same on Windows, but Wine takes it for "as before".
    ::SetDllDirectoryW(CGarmPath(moduleFileName(nullptr)).fullFolder().c_str());
}
