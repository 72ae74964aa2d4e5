#pragma once

#include "GarmPC3Editor/Export.h"
#include "kernel/OdSharedPtr.h"
#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <cstdint>

class CPBlock;

// All lengths of the media family are millimetres, areas square millimetres.
//
// init of each class: false at the first required key that is missing; the fields before it are then stored, those
// after it untouched. write appends to an empty block and is false only when a nested write is. Both throw when memory
// runs out: returning false would look like a missing key.

// Block "media_bounds": the paper's width and height.
class GARM_PC3EDITOR_API GmMediaBoundsNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    double m_urx = 0.0;
    double m_ury = 0.0;
};

// Block "media_description": the paper and its printable area.
class GARM_PC3EDITOR_API GmMediaDescriptionNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    double m_printable_bounds_llx = 0.0;
    double m_printable_bounds_lly = 0.0;
    double m_printable_bounds_urx = 0.0;
    double m_printable_bounds_ury = 0.0;
    double m_printable_area = 0.0;
    bool m_dimensional = true;
    GmMediaBoundsNode m_media_bounds;
};

// Block "size": the chosen paper.
class GARM_PC3EDITOR_API GmSizeNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    // True when the name changed (compared exactly). A null name fails the assertion "name", changes nothing and
    // returns false.
    bool setName(const OdChar* name);

    OdString m_name;
    std::int32_t m_group = 0;
    bool m_landscape_mode = false;
    double m_longplot_reduction = -1.0; // -1 means unset
    std::int32_t m_dm_scale = 100;      // per cent; 100 means unset
    GmMediaDescriptionNode m_media_description;
};

// Block "destination": collating.
class GARM_PC3EDITOR_API GmDestinationNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    // Sets type and text; true when the type changed. The text is rewritten in any case.
    bool setCollating(bool collate);

    // Texts by collating type: 0 "None", 1 "Regular". Never index it with a value from a file.
    static const OdChar* const cCollatingName[2];

    OdString m_name;
    std::int32_t m_collating_type = 0;
    OdString m_collating_name;
};

// Block "media". Copies share the destination.
class GARM_PC3EDITOR_API GmMediaNode
{
public:
    bool init(const CPBlock& block);
    bool write(CPBlock& block) const;

    // True when the paper geometry is unusable. A margin of zero counts as empty, NaN does not.
    bool emptyBounds() const;

    // Imports the geometry from a printer's device context; returns true if a stored value changed. A null context, or
    // one with 0 dots per inch, changes nothing.
    bool setBounds(HDC dc);

    // Exchanges x and y of the whole geometry.
    void swapBounds();

    std::int32_t m_selection_method = 2;
    OdString m_type;
    std::int32_t m_dm_orientation = 1; // DMORIENT_*
    double m_actual_printable_bounds_llx = 0.0;
    double m_actual_printable_bounds_lly = 0.0;
    double m_actual_printable_bounds_urx = 0.0;
    double m_actual_printable_bounds_ury = 0.0;
    std::int32_t m_number_of_copies = 1;
    GmSizeNode m_size;
    OdSharedPtr<GmDestinationNode> m_destination; // null if the file has none
};
