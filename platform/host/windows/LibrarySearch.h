#pragma once

// Takes the current folder out of the places where this process looks for libraries: it is mostly the folder of
// somebody's drawings, and a library there would run with the user's rights. To be called first of all in a program.
// The folders of PATH stay: printer drivers work in this process, and theirs may be there.
void dropCurrentFolderFromSearch();
