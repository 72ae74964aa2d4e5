#pragma once

#include "GarmPC3Editor/Export.h"
#include "GarmPC3Editor/GmOptionalFlag.h"
#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <cstdint>

class CPBlock;

// Of both nodes: init is false at the first required key that is missing; the fields before it are then stored, those
// after it untouched. write appends to an empty block and is always true. Both throw when memory runs out: returning
// false would look like a missing key.

// Block "resolution", in dots per inch.
class GARM_PC3EDITOR_API GmResolutionNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    // Imports the resolution from a device mode; returns true if a value or the name changed. A print-quality constant
    // needs the device context; without one nothing changes.
    bool set(const DEVMODEW& dm, HDC dc);

    // Puts the resolution into a device mode, with the flags of what it wrote.
    void get(DEVMODEW& dm) const;

    OdString m_name; // "%dx%d" or a DMRES_ name, with an optional suffix that begins with "_"
    double m_phys_resolution_x = 1.0;
    double m_phys_resolution_y = 1.0;
    double m_addr_resolution_x = 1.0;
    double m_addr_resolution_y = 1.0;
    double m_effective_resolution_x = 1.0;
    double m_effective_resolution_y = 1.0;
};

// Block "res_color_mem": colour, colour management, memory limits, and the resolution.
class GARM_PC3EDITOR_API GmResColorMemNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    OdString m_name;
    std::int32_t m_num_colors = 256;
    std::int32_t m_color_depth = 8;
    std::int32_t m_num_undithered_colors = 256;
    std::int32_t m_color_system = 0;
    std::int32_t m_dm_color = 1; // DMCOLOR_*
    std::int32_t m_icm_method = 0;
    std::int32_t m_icm_intent = 0;
    std::int32_t m_ism_max = 6;
    std::int32_t m_ole_max = 6;
    std::int32_t m_hard_soft = 0;
    std::int32_t m_preference = 50;
    GmOptionalFlag m_lines_overwrite;
    GmOptionalFlag m_color_mono;
    GmResolutionNode m_resolution;
};
