#pragma once

#include "GarmPC3Editor/Export.h"
#include "GarmPC3Editor/GmOptionalFlag.h"
#include "kernel/OdString.h"

#include <cstdint>

class CPBlock;

// The driver types that have a meaning in this module.
enum GmDriverType : std::int32_t
{
    eImageFileDriver = 0,
    eWindowsDriver = 1,
    eEPlotDriver = 3,
};

// Block "meta": which driver and model the configuration belongs to, the Windows device it is bound to, global flags.
//
// Throws when memory runs out: returning false would look like a missing key.
class GARM_PC3EDITOR_API GmMetaNode
{
public:
    // False at the first required key that is missing; the fields before it are then stored, those after it untouched.
    bool init(const CPBlock& block);
    // Appends to an empty block; always true.
    bool write(CPBlock& block) const;

    OdString m_user_defined_model_pathname;
    OdString m_user_defined_model_basename;
    OdString m_driver_pathname;
    OdString m_driver_version;
    OdString m_driver_tag_line;
    std::int32_t m_toolkit_version = 0;
    std::int32_t m_driver_type = eImageFileDriver; // any number
    OdString m_canonical_family_name;
    bool m_show_custom_first = false;
    bool m_truetype_as_text = true;
    OdString m_canonical_model_name;
    OdString m_localized_family_name;
    OdString m_localized_model_name;
    bool m_file_only = false;
    OdString m_model_abilities;
    OdString m_udm_description;
    OdString m_win_device_name;
    OdString m_win_driver_name;
    OdString m_short_net_name;
    OdString m_friendly_net_name;
    std::int32_t m_dm_driver_version = 0;
    GmOptionalFlag m_default_system_cfg;
    OdString m_platform;
    OdString m_locale;
    OdString m_config_description;
    bool m_config_autospool = false;
};
