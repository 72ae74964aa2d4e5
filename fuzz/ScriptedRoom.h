#pragma once

#include "fuzz/Input.h"
#include "tests/support/room/PrinterRoom.h"

#include <vector>

// A printer room whose printers, drivers and spooler do what an input says: wrong sizes and counts, odd device modes,
// answers that change from call to call, calls that fail or throw.
//
// What a driver writes stays within the room that is kept for it behind every buffer. One that writes farther cannot be
// defended against.
class ScriptedRoom
{
public:
    // With some printers; the first one is called "Plotter A" and has the driver "Acme HP-GL", unless the input wants
    // them otherwise.
    explicit ScriptedRoom(Input& input);

    // Something happens to the room.
    void change(Input& input);

    // The next n-th call fails, or throws if a driver answers it, should the input say so.
    void sabotage(Input& input);
    void endSabotage();

    // The name of a printer of the room, or any text.
    OdString someName(Input& input) const;

    // Until something happens that no sound system does: the printers are as the module's own rules take them to be.
    bool isHonest() const { return m_honest; }

    // Nothing is open, nothing was closed that was not, and nobody waits.
    void expectLeftAsFound() const;

    PrinterRoom& room() { return m_room; }

private:
    void lieAboutRecords(Input& input);
    void changeLater(Input& input);

    PrinterRoom m_room;
    bool m_honest = true;
    int m_throwIn = 0; // calls; 0 for never
    std::vector<room::Printer*> m_printers;
};

// The sizes, fields and private bytes of a block as a driver or a caller may hand it over: sound for the most part, but
// any field may be anything, and the length need not be what the block claims.
std::vector<BYTE> someBlock(Input& input);
