#pragma once

#include "GarmPC3Editor/Export.h"
#include "kernel/OdString.h"

#include <cstdint>

class CPBlock;

// Block "io": where the plot goes.
//
// Throws when memory runs out: returning false would look like a missing key.
class GARM_PC3EDITOR_API GmIoNode
{
public:
    // False at the first key that is missing; the fields before it are then stored.
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    std::int32_t m_type = 2;
    OdString m_pathname;
    bool m_allsysvalid = false;
    bool m_plot_to_file = false;
};
