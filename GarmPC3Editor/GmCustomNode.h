#pragma once

#include "GarmPC3Editor/Export.h"
#include "kernel/OdString.h"

#include <cstdint>
#include <map>

class CPBlock;

// Block "custom": the parts of a printer's DEVMODEW that have no key of their own. Items that this module does not know
// are kept and written back.
//
// Throws when memory runs out: returning false would look like a bad block, and bad blocks are dropped.
class GARM_PC3EDITOR_API GmCustomNode
{
public:
    // Returns false if the block does not have the known shape; the maps then have what was read before that.
    bool parse(const CPBlock& block);
    // Appends numbers, binaries, strings, flags, each in key order, under one running number; always true.
    bool write(CPBlock& block) const;

    // Stores the decimal text of value. A missing key is added only when insert is true; otherwise the call fails and
    // nothing changes.
    bool setNumber(std::uint32_t value, OdStringView key, bool insert);
    // Returns false and leaves out untouched if the key is missing or is not a number (read like "%d", wrapped to 32
    // bits).
    bool getNumber(OdStringView key, std::int32_t& out) const;

    // The same for the binary item "RawPrivateDeviceData": hexadecimal text, two upper-case digits per byte.
    bool setRawData(const OdString& text, bool insert);
    bool getRawData(OdString& out) const;

    std::map<OdString, OdString> m_strings;
    std::map<OdString, OdString> m_binaries;
    std::map<OdString, OdString> m_numbers; // as text
    std::map<OdString, std::uint8_t> m_flags;
};
