#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "pia_tree/CPItem.h"

#include <cstdint>
#include <span>
#include <variant>

namespace plothost
{
// A value of a configuration; nothing for a flag that is absent.
using KeyValue = std::variant<std::monostate, bool, std::int32_t, double, OdString>;

// One key of a block, as a reader of configurations from outside knows it.
struct ConfigurationKey
{
    const OdChar* name;
    CPItem::EType kind;
    bool isInteger;  // a number that has to read as a 32-bit integer
    bool isRequired; // a file without it is refused
    KeyValue (*value)(const GmPlotCfg3& configuration);
};

// One block with a fixed set of keys.
struct ConfigurationBlock
{
    // Names of the blocks it lies in and its own, "/" between them.
    const OdChar* path;
    bool isRequired;
    std::span<const ConfigurationKey> keys;
};

// Every block but "custom", whose keys are the driver's: a block comes before the blocks inside it, keys and blocks are
// in the order in which the module reads them.
std::span<const ConfigurationBlock> configurationBlocks();

// The only block with a fixed set of keys that a configuration may lack.
inline constexpr const OdChar* optionalBlock = OD_T("media/destination");
} // namespace plothost
