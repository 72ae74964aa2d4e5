#pragma once

#include "fuzz/Input.h"
#include "tests/support/room/PrinterRoom.h"

#include <vector>

// A printer room whose printers, drivers and spooler do what an input says: wrong sizes and counts, strange device
// modes, answers that change from call to call, calls that fail or throw.
//
// What a driver writes stays within the spare room after every buffer. There is no defence against one that writes
// farther.
class ScriptedRoom
{
public:
    // Starts with some printers; the first one is "Plotter A" with the driver "Acme HP-GL", unless the input says
    // otherwise.
    explicit ScriptedRoom(Input& input);

    // Changes something in the room.
    void change(Input& input);

    // If the input says so, the n-th call from now fails, or throws if a driver answers it.
    void sabotage(Input& input);
    void endSabotage();

    // The name of a printer in the room, or any text.
    OdString someName(Input& input) const;

    // True until something happens that no sound system does: the printers are as the module's own rules assume.
    bool isHonest() const { return m_honest; }

    // Expects that nothing is open, that nothing was closed that was not open, and that nothing waits.
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

// The sizes, fields and private bytes of a block as a driver or a caller may pass it: mostly valid, but any field may
// be anything, and the length may differ from what the block claims.
std::vector<BYTE> someBlock(Input& input);
