#include "tests/support/room/RoomState.h"

#include <algorithm>
#include <cstring>

// The driver of a printer: its device mode and its papers.

using namespace room;

namespace
{
constexpr std::size_t nameSlot = 64;

int deliverCodes(const Printer& printer, WCHAR* output)
{
    const int count = static_cast<int>(printer.papers.size());
    if (!output)
        return printer.lies.codeCount.value_or(count);
    const std::size_t filled =
        std::min(printer.lies.codesFilled.value_or(printer.papers.size()), printer.papers.size());
    for (std::size_t i = 0; i < filled; ++i)
    {
        const auto code = static_cast<WORD>(printer.papers[i].code);
        std::memcpy(output + i, &code, sizeof code);
    }
    return printer.lies.codeFillAnswer.value_or(static_cast<int>(filled));
}

int deliverNames(const Printer& printer, WCHAR* output)
{
    std::vector<Text> names;
    for (const Paper& paper : printer.papers)
        names.push_back(paper.name);
    if (printer.paperNames)
        names = *printer.paperNames;
    if (!output)
        return printer.lies.nameCount.value_or(static_cast<int>(names.size()));
    const std::size_t filled = std::min(printer.lies.namesFilled.value_or(names.size()), names.size());
    for (std::size_t i = 0; i < filled; ++i)
    {
        const std::size_t length = std::min(names[i].size(), nameSlot);
        std::copy_n(names[i].begin(), length, output + i * nameSlot);
        if (length < nameSlot)
            output[i * nameSlot + length] = 0;
    }
    return printer.lies.nameFillAnswer.value_or(static_cast<int>(filled));
}
} // namespace

extern "C" LONG WINAPI DocumentPropertiesW(HWND owner, HANDLE printer, LPWSTR device, PDEVMODEW output, PDEVMODEW input,
                                           DWORD mode)
{
    const bool merges = input && (mode & DM_IN_BUFFER);
    const std::vector<BYTE> in = bytesOf(merges ? input : nullptr);
    const Visit visit({.call = Call::documentProperties,
                       .printer = nameOf(printer),
                       .detail = mode,
                       .fill = output != nullptr,
                       .device = textOf(device),
                       .devMode = in,
                       .owner = owner});
    State& s = state();
    Printer* const found = s.ofHandle(printer);
    if (!found)
    {
        ::SetLastError(ERROR_INVALID_HANDLE);
        return -1;
    }
    if (visit.mustFail())
        return s.documentFailure;

    const DriverLies& lies = found->lies;
    const std::vector<BYTE> block = merges ? mergedBlock(*found, in) : driverBlock(*found);
    if (mode == 0)
        return lies.sizeAnswer.value_or(static_cast<LONG>(block.size()));
    if (merges && found->mergeSticks)
        found->stuckBlock = block;
    if (output && (mode & DM_OUT_BUFFER) && !lies.fillWritesNothing)
    {
        const auto bytes = reinterpret_cast<BYTE*>(output);
        std::ranges::copy(block, bytes);
        std::fill_n(bytes + block.size(), lies.overrun, overrunMark);
    }
    return merges ? lies.mergeAnswer.value_or(IDOK) : lies.fillAnswer.value_or(IDOK);
}

extern "C" int WINAPI DeviceCapabilitiesW(LPCWSTR device, LPCWSTR port, WORD capability, LPWSTR output,
                                          const DEVMODEW* devMode)
{
    const Visit visit({.call = Call::deviceCapabilities,
                       .printer = textOrEmpty(device),
                       .detail = capability,
                       .fill = output != nullptr,
                       .null = !port,
                       .text = textOrEmpty(port),
                       .devMode = bytesOf(devMode)});
    const Printer* const found = device ? state().find(device) : nullptr;
    if (visit.mustFail() || !found)
        return -1;
    if (capability == DC_PAPERS)
        return deliverCodes(*found, output);
    if (capability == DC_PAPERNAMES)
        return deliverNames(*found, output);
    return -1;
}
