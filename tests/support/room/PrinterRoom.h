#pragma once

#include "win32/Win32.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// A scripted room of printers behind the spooler, GDI and user functions of Win32Names.h. In native programs it is the
// operating system; Windows test programs link it before the import libraries. Without a PrinterRoom object no printer
// is installed.
//
// Script it like a room, not like a mock: add printers, say which of them misbehave and how, and afterwards check which
// calls were made and what was left open. By default a printer behaves like a CUPS queue under Wine. A background
// thread may call at the same time as the main thread; change a printer only while no call is running, or from a hook.

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
    int code = 0;   // truncated to 16 bits when delivered
    Text name = {}; // truncated to 64 units when delivered; without a terminator if it has 64
};

// The results of GetDeviceCaps; lengths in dots.
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

// Results of the driver that differ from the data of the printer.
struct DriverLies
{
    // DocumentPropertiesW: the results of the size query, the fill, and a merge (a call with DM_IN_BUFFER). By default
    // the calls succeed. They write their output whatever they return.
    std::optional<LONG> sizeAnswer = {};
    std::optional<LONG> fillAnswer = {};
    std::optional<LONG> mergeAnswer = {};
    bool fillWritesNothing = false;
    std::size_t overrun = 0; // bytes written past the block

    // DeviceCapabilitiesW: the counts, and the results of the fills (which deliver everything nevertheless).
    std::optional<int> codeCount = {};
    std::optional<int> nameCount = {};
    std::optional<int> codeFillAnswer = {};
    std::optional<int> nameFillAnswer = {};
    std::optional<std::size_t> codesFilled = {}; // how many the fills actually write
    std::optional<std::size_t> namesFilled = {};
};

struct Printer
{
    Text name = {};
    // If absent, records contain a null pointer.
    std::optional<Text> driver = Text();
    std::optional<Text> port = Text();
    std::vector<Paper> papers = {};
    std::optional<std::vector<Text>> paperNames = {}; // if the names do not match the codes
    WORD driverExtra = 8;

    bool listed = true;      // by EnumPrintersW
    bool connection = false; // a network connection, listed only in the second pass
    bool namedInRecords = true;
    std::optional<std::intptr_t> opensAs = {};   // OpenPrinterW returns this value as the handle
    std::optional<std::intptr_t> contextIs = {}; // CreateDCW returns this value

    // The default block of the driver: a normal public part, changed by tune, and private bytes 1, 2, 3...; or exactly
    // rawBlock. GetPrinterW delivers it too unless hasDevMode is false.
    std::function<void(DEVMODEW&)> tune = {};
    std::optional<std::vector<BYTE>> rawBlock = {};
    bool hasDevMode = true;

    // Replaces the normal merge: block is the default block of the driver, input the caller's.
    std::function<void(std::vector<BYTE>& block, const std::vector<BYTE>& input)> merge = {};
    // CreateDCW modifies the texts it is given.
    bool scribbles = false;

    // A merged block becomes the default of the driver, as under Wine; it is stored in stuckBlock. GetPrinterW still
    // delivers the original.
    bool mergeSticks = false;
    std::optional<std::vector<BYTE>> stuckBlock = {};

    DeviceCaps caps = {};
    DriverLies lies = {};
};

// Wrong results of the record calls (GetPrinterW, GetPrinterDriverW, EnumPrintersW).
struct RecordLies
{
    bool sizeQuerySucceeds = false;
    bool neededUnwritten = false;       // the size query sets no size
    std::optional<DWORD> needed = {};   // the size that the size query returns
    bool fillsWhatFits = false;         // a buffer that is too small is filled as far as it goes, and the call succeeds
    bool unterminatedTexts = false;     // the last text runs to the end of the buffer
    bool oddBlocks = false;             // pDevMode is at an odd address, not just 2-byte aligned as under Wine
    bool pointersOutside = false;       // pointers to texts and blocks point past the buffer
    std::size_t overrun = 0;            // bytes written past the buffer
    std::optional<DWORD> returned = {}; // the number of records that an enumeration reports
};

// One recorded call.
struct CallRecord
{
    Call call = {};
    Text printer = {};     // "" if the call has none or it was removed; for an open the name as given
    DWORD detail = 0;      // level, mode, capability, index, flags of an enumeration, message, string ID
    DWORD level = 0;       // of the enumeration
    bool fill = false;     // with an output buffer
    bool null = false;     // OpenPrinterW without a name, DeviceCapabilitiesW without a port
    bool defaults = false; // OpenPrinterW with defaults
    // Server of EnumPrintersW, environment of GetPrinterDriverW, output of CreateDCW; nothing for null.
    std::optional<Text> where = {};
    std::optional<Text> device = {}; // the device name passed to DocumentPropertiesW
    Text text = {};                  // port of DeviceCapabilitiesW, driver of CreateDCW, text of a message box
    std::vector<BYTE> devMode = {};  // the input block with the length it claims; empty for none
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

// A call that blocks until it is released, for tests in which a driver hangs.
class Held
{
public:
    virtual ~Held() = default;
    virtual void awaitEntered() = 0; // waits until a call has arrived
    virtual void release() = 0;      // lets this call and all later ones continue
};
} // namespace room

class PrinterRoom
{
public:
    PrinterRoom();  // empties the room
    ~PrinterRoom(); // empties it again and releases held calls
    PrinterRoom(const PrinterRoom&) = delete;
    PrinterRoom& operator=(const PrinterRoom&) = delete;

    // Printers are enumerated in the order they were added. The reference is valid as long as the room, even after
    // remove().
    room::Printer& add(room::Printer printer);
    // The printer is no longer listed, cannot be opened, and calls with its open handles fail.
    void remove(const room::Text& name);

    // Allows the network pass (flags 0x64). By default it fails with error 1004 and a needed size of 0.
    void allowNetworkPass();
    // Failing opens return a foreign handle nevertheless.
    void writeHandleOnFailedOpen();
    room::RecordLies& lies(room::Call call);

    // Makes the call always fail, for one printer or for all.
    void refuse(room::Call call, const room::Text& printer);
    void refuse(room::Call call);

    // Makes the n-th call from now fail (1 is the next); 0: none. Closing calls fail but still close.
    void failNth(int n);
    // Makes the call throw std::runtime_error instead, like a driver that crashes. Closing calls do not count.
    void throwNth(int n);
    bool failureReached() const;
    // The result of a failing DocumentPropertiesW, -1 by default; it writes nothing.
    void setDocumentFailure(LONG answer);

    // Called in the calling thread at the start of every such call to that printer ("" for all). It may change the
    // room, wait, and throw.
    void onCall(room::Call call, const room::Text& printer, room::Hook hook);
    void forgetHooks();
    std::shared_ptr<room::Held> hold(room::Call call, const room::Text& printer);

    // What is still open, and how often something was closed that was not open.
    int openHandles() const;
    int openContexts() const;
    int strayCloses() const;

    std::vector<room::CallRecord> calls() const;
    int count(room::Call call) const;
    void forgetCalls();

    std::vector<room::PostedMessage> posted() const;
    void awaitPosted(std::size_t count) const;
    std::vector<room::ShownMessage> shownMessages() const;
    void setMessageBoxAnswer(int answer); // IDOK by default

    // Adds a string resource for LoadStringW.
    void putString(HINSTANCE library, UINT id, const room::Text& text);

    // New unique handles.
    HWND newWindow();
    HINSTANCE newLibrary();
};
