#include "tests/support/processcounts/ProcessCounts.h"

std::vector<ProcessCount> allProcessCounts()
{
    // Memory first: the other counts fill lists of their own.
    return {{"heap", heapBytes()},         {"private", privateBytes()},
            {"working-set", workingSet()}, {"handles", openSystemHandles()},
            {"views", mappedViews()},      {"gdi", gdiObjects()},
            {"user", userObjects()},       {"threads", threads()}};
}
