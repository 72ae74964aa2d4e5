#pragma once

// Removes the current folder from the places where this process looks for libraries: it is usually a folder of
// drawings, and a library planted there would run with the user's rights. Call it first of all in a program. The
// folders of PATH stay, because printer drivers run in this process and may have their libraries there.
void dropCurrentFolderFromSearch();
