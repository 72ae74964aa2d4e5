#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/Fault.h"

#include <variant>

// The keys of a node and their values, for code that walks them all: reports, checks, tests.

// What a missing key means and when the item is written; the rules are in Fields.h.
enum class RowKind
{
    required,
    kept,
    keptUnlessSkipped,
    optionalText,
    optionalFlag,
};

// The member of a node that holds the value of a key.
using FieldMember = std::variant<OdString*, bool*, GmOptionalFlag*, std::int32_t*, double*>;

constexpr ValueKind kindOf(const FieldMember& member) noexcept
{
    constexpr ValueKind kinds[] = {ValueKind::text, ValueKind::flag, ValueKind::flag, ValueKind::wholeNumber,
                                   ValueKind::number};
    return kinds[member.index()];
}

struct Field
{
    OdStringView key;
    RowKind row;
    FieldMember member;

    // Without it the block cannot be read.
    bool isRequired() const noexcept { return row == RowKind::required; }
};

struct FieldBlock
{
    OdStringView key;
    bool isRequired;
    bool isPresent; // an absent one has no fields
};

class FieldVisitor
{
public:
    virtual ~FieldVisitor() = default;

    virtual void field(const Field& field) = 0;
    // Returns whether to walk into the block; if so, endBlock follows.
    virtual bool beginBlock(const FieldBlock& block) = 0;
    virtual void endBlock() = 0;
    // The items of the custom data, whose keys are the driver's.
    virtual void customItems(GmCustomNode& custom) = 0;
};

// Visits the fields of a node in the order in which they are read and written, nested nodes included.
void forEachField(GmMetaNode& node, FieldVisitor& visitor);
void forEachField(GmMediaBoundsNode& node, FieldVisitor& visitor);
void forEachField(GmMediaDescriptionNode& node, FieldVisitor& visitor);
void forEachField(GmSizeNode& node, FieldVisitor& visitor);
void forEachField(GmDestinationNode& node, FieldVisitor& visitor);
void forEachField(GmMediaNode& node, FieldVisitor& visitor);
void forEachField(GmIoNode& node, FieldVisitor& visitor);
void forEachField(GmResolutionNode& node, FieldVisitor& visitor);
void forEachField(GmResColorMemNode& node, FieldVisitor& visitor);
void forEachField(GmCustomNode& node, FieldVisitor& visitor);
void forEachField(GmPlotCfg3& configuration, FieldVisitor& visitor);
