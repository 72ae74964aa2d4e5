#pragma once

#include "kernel/OdString.h"

namespace modulebench
{
// What all actions work on.
struct Subject
{
    OdString configuration; // its full path
    OdString printer;       // that it is bound to
};

// Each prints lines "name: value" and throws std::runtime_error on failure.

// How often each action is repeated in one process.
struct Load
{
    unsigned calls = 0;    // of PC3GETDEVMODE
    unsigned checks = 0;   // background checks
    unsigned openings = 0; // of the editor, with all its pages
};

// Runs each of the three, followed by the same number of the bare system calls, windows and threads that it needs.
// Before the first part and after every one (at most twenty) it prints what the process holds of the system ("calls
// heap: 123"). At the end the module must be unloaded.
void runLoad(const Subject& subject, const Load& load);

// Times PC3GETDEVMODE and its bare calls alternately, in nanoseconds: "command: 123", "bare: 123".
void timeCommand(const Subject& subject, unsigned rounds);

// Times the editor, a bare sheet with the same pages, and one that bare system calls fill with the same contents,
// alternately: until they are painted ("editor opened: 123"), and from there to their second page ("editor switched:
// 123").
void timeEditor(const Subject& subject, unsigned rounds);
} // namespace modulebench
