#pragma once

#include "win32/Win32.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// A scripted room of printers behind the spooler's, GDI's and user's functions of Win32Names.h. Natively it is the
// operating system; a Windows test program links it in front of the import libraries. Without a PrinterRoom object it
// is a machine on which no printer is installed.
//
// It is scripted like a room, not like a mock: put printers in, say which of them misbehave and how, and look
// afterwards at what was called and what was left open. What it does by default is what a driver over CUPS does under
// Wine. One background thread may call while the main thread does; a test that changes a printer does so while nobody
// calls, or from a hook.

namespace room
{
using Text = std::basic_string<WCHAR>;

enum class Call
{
    openPrinter,
    closePrinter,
    getPrinter,
    getPrinterDriver,
    enumPrinters,
    documentProperties,
    deviceCapabilities,
    createDC,
    getDeviceCaps,
    deleteDC,
    postMessage,
    messageBox,
    loadString,
};

struct Paper
{
    int code = 0;   // cut to 16 bits when delivered
    Text name = {}; // cut to 64 units when delivered; 64 have no terminator
};

// What GetDeviceCaps answers; lengths in dots.
struct DeviceCaps
{
    int dpiX = 600;
    int dpiY = 600;
    int width = 4960; // PHYSICALWIDTH and so on
    int height = 7016;
    int offsetX = 100;
    int offsetY = 100;
    int bitsPerPixel = 32;
};

// The printer driver's answers where they are not what the printer's own data say.
struct DriverLies
{
    // DocumentPropertiesW: the size query; the fill; a merge (a call with DM_IN_BUFFER). Without an answer of their own
    // the calls succeed. An answer does not keep the call from writing.
    std::optional<LONG> sizeAnswer = {};
    std::optional<LONG> fillAnswer = {};
    std::optional<LONG> mergeAnswer = {};
    bool fillWritesNothing = false;
    std::size_t overrun = 0; // bytes written behind the block

    // DeviceCapabilitiesW: the counts, and what the fills return (they deliver everything they have all the same).
    std::optional<int> codeCount = {};
    std::optional<int> nameCount = {};
    std::optional<int> codeFillAnswer = {};
    std::optional<int> nameFillAnswer = {};
    std::optional<std::size_t> codesFilled = {}; // how many the fills really write
    std::optional<std::size_t> namesFilled = {};
};

struct Printer
{
    Text name = {};
    // Absent: a null pointer in every record.
    std::optional<Text> driver = Text();
    std::optional<Text> port = Text();
    std::vector<Paper> papers = {};
    std::optional<std::vector<Text>> paperNames = {}; // when the names do not go with the codes
    WORD driverExtra = 8;

    bool listed = true;      // EnumPrintersW knows it
    bool connection = false; // a network connection: only in the second pass
    bool namedInRecords = true;
    std::optional<std::intptr_t> opensAs = {};   // OpenPrinterW succeeds with this value instead of a handle
    std::optional<std::intptr_t> contextIs = {}; // the same for CreateDCW

    // The driver's default block: a usual public part, changed by tune, and private bytes 1, 2, 3...; or rawBlock as it
    // stands. GetPrinterW delivers it too unless hasDevMode is false.
    std::function<void(DEVMODEW&)> tune = {};
    std::optional<std::vector<BYTE>> rawBlock = {};
    bool hasDevMode = true;

    // Called for a merge instead of the usual one: block is the driver's default block, input the caller's.
    std::function<void(std::vector<BYTE>& block, const std::vector<BYTE>& input)> merge = {};
    // CreateDCW writes into the texts it is given, as if they were its own.
    bool scribbles = false;

    // A merge becomes the driver's default block, as under Wine; what GetPrinterW delivers stays. The block that
    // sticks.
    bool mergeSticks = false;
    std::optional<std::vector<BYTE>> stuckBlock = {};

    DeviceCaps caps = {};
    DriverLies lies = {};
};

// How the record calls (GetPrinterW, GetPrinterDriverW, EnumPrintersW) lie.
struct RecordLies
{
    bool sizeQuerySucceeds = false;
    bool neededUnwritten = false;     // by the size query
    std::optional<DWORD> needed = {}; // what the size query says
    bool fillsWhatFits = false;       // a buffer that is too small is filled, and the call succeeds
    bool unterminatedTexts = false;   // the last text runs to the end of the buffer
    bool oddBlocks = false;           // pDevMode at an odd address; otherwise it is only 2-byte aligned, as under Wine
    bool pointersOutside = false;     // texts and blocks point behind the buffer
    std::size_t overrun = 0;          // bytes written behind the buffer
    std::optional<DWORD> returned = {}; // the number of records that an enumeration says it has
};

// One call as it came in.
struct CallRecord
{
    Call call = {};
    Text printer = {};     // "" when it concerns none or one that is gone; the name as given for an open
    DWORD detail = 0;      // level, mode, capability, index, flags of an enumeration, message, string ID
    DWORD level = 0;       // of an enumeration
    bool fill = false;     // a buffer was given
    bool null = false;     // OpenPrinterW without a name, DeviceCapabilitiesW without a port
    bool defaults = false; // OpenPrinterW with defaults
    // The server of EnumPrintersW, the environment of GetPrinterDriverW, the output of CreateDCW; none for null.
    std::optional<Text> where = {};
    std::optional<Text> device = {}; // the name given to DocumentPropertiesW
    Text text = {};                  // port of DeviceCapabilitiesW, driver of CreateDCW, text of a message box
    std::vector<BYTE> devMode = {};  // the block given as input, as long as it claims to be; empty for none
    HWND owner = nullptr;            // of DocumentPropertiesW
};

struct PostedMessage
{
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    friend bool operator==(const PostedMessage&, const PostedMessage&) = default;
};

struct ShownMessage
{
    HWND owner;
    Text text;
    std::optional<Text> caption;
    UINT type;
};

using Hook = std::function<void(const CallRecord&)>;

// A call that waits inside until it is released, for tests in which a driver hangs.
class Held
{
public:
    virtual ~Held() = default;
    virtual void awaitEntered() = 0; // until a call has arrived
    virtual void release() = 0;      // lets that one and all later ones go on
};
} // namespace room

class PrinterRoom
{
public:
    PrinterRoom();  // an empty room
    ~PrinterRoom(); // and empty again; held calls are released
    PrinterRoom(const PrinterRoom&) = delete;
    PrinterRoom& operator=(const PrinterRoom&) = delete;

    // Enumeration is in the order of adding. The reference stays valid as long as the room, also after remove().
    room::Printer& add(room::Printer printer);
    // The printer is gone: not listed, cannot be opened, and open handles of it answer with errors.
    void remove(const room::Text& name);

    // The network pass (flags 0x64) works. By default it is refused with error 1004 and a needed size of 0.
    void allowNetworkPass();
    // Opens that fail write a stranger's handle nevertheless.
    void writeHandleOnFailedOpen();
    room::RecordLies& lies(room::Call call);

    // The call always fails: for one printer, or for all.
    void refuse(room::Call call, const room::Text& printer);
    void refuse(room::Call call);

    // The n-th call of all that come from now on fails (1 is the next); 0 is none. Closing calls fail but close.
    void failNth(int n);
    // The same, but the call throws std::runtime_error, as drivers do that crash. Closing calls are not counted.
    void throwNth(int n);
    bool failureReached() const;
    // What a failing DocumentPropertiesW answers, -1 at first; nothing is written.
    void setDocumentFailure(LONG answer);

    // Runs in the calling thread before the room answers, on every such call to that printer ("" for all). It may
    // change the room, wait, and throw.
    void onCall(room::Call call, const room::Text& printer, room::Hook hook);
    void forgetHooks();
    std::shared_ptr<room::Held> hold(room::Call call, const room::Text& printer);

    // What was left, and what was closed that was not open.
    int openHandles() const;
    int openContexts() const;
    int strayCloses() const;

    std::vector<room::CallRecord> calls() const;
    int count(room::Call call) const;
    void forgetCalls();

    std::vector<room::PostedMessage> posted() const;
    void awaitPosted(std::size_t count) const;
    std::vector<room::ShownMessage> shownMessages() const;
    void setMessageBoxAnswer(int answer); // IDOK at first

    // String resources; LoadStringW finds what is put in here.
    void putString(HINSTANCE library, UINT id, const room::Text& text);

    // Handles for tests that need one; each is a new one.
    HWND newWindow();
    HINSTANCE newLibrary();
};
