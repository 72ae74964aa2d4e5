#pragma once

#include "win32/Win32.h"

#include <cstddef>
#include <span>
#include <vector>

// A DEVMODEW comes from a driver, another process or a file that anyone may have edited, and states its own length. So
// inside the module it always travels together with the number of bytes that are really there.

// The smallest usable public part: up to and including dmFields. A shorter block cannot even say what it holds.
inline constexpr std::size_t smallestDevMode = offsetof(DEVMODEW, dmFields) + sizeof(DEVMODEW::dmFields);

// Those of the given DM_* flags whose field is entirely within a public part of size bytes. Flags without a field stay.
DWORD devModeFlagsWithin(DWORD flags, std::size_t size) noexcept;

// The bytes of a block of which only the address is known: as many as it claims. For the module's outer functions,
// whose signatures carry no length; the caller vouches for the claim. The address may be misaligned.
std::span<const BYTE> claimedBytes(const DEVMODEW& devMode) noexcept;

// Reads a DEVMODEW from bytes that may be too few, misaligned, or wrong about their sizes. Everything after the public
// part is read from these bytes, which must outlive the view.
class DevModeView
{
public:
    // An invalid view.
    DevModeView() noexcept = default;

    // Invalid unless there are at least smallestDevMode bytes, dmSize is at least that too, and all dmSize +
    // dmDriverExtra bytes are there. What follows them is not part of the block.
    explicit DevModeView(std::span<const BYTE> bytes) noexcept;

    bool isValid() const noexcept { return !m_bytes.empty(); }
    explicit operator bool() const noexcept { return isValid(); }

    // The public fields, aligned and complete: a field that is not entirely within dmSize is 0. dmSize and dmFields are
    // unchanged, so test flags with has(). The names may lack a terminator. All 0 for an invalid view.
    const DEVMODEW& fields() const noexcept { return m_fields; }

    // Whether one of the flags is set and its field exists.
    bool has(DWORD flags) const noexcept { return (devModeFlagsWithin(m_fields.dmFields, size()) & flags) != 0; }

    // dmFields unchanged, including the flags of missing fields.
    DWORD rawFlags() const noexcept { return m_fields.dmFields; }

    // The lengths of the two parts in bytes.
    std::size_t size() const noexcept { return m_fields.dmSize; }
    std::size_t driverExtra() const noexcept { return m_fields.dmDriverExtra; }

    // The driver's own bytes after the public part; empty if there are none.
    std::span<const BYTE> privateBytes() const noexcept { return m_bytes.subspan(size()); }

    // The whole block: size() + driverExtra() bytes; empty for an invalid view.
    std::span<const BYTE> bytes() const noexcept { return m_bytes; }

private:
    std::span<const BYTE> m_bytes;
    DEVMODEW m_fields = {};
};

// Owns the bytes of one DEVMODEW, or none. Can be moved and copied; views refer to its bytes.
class DevModeBlock
{
public:
    // An empty block.
    DevModeBlock() noexcept = default;

    // Zeroed bytes for a driver that asked for size of them. Drivers write more than they ask for (8 bytes past the end
    // have been seen), and some read a whole DEVMODEW whatever dmSize says, so there is spare room: at least for the
    // longest block possible. A block that claims more than about twice the requested size is still invalid.
    static DevModeBlock toFill(std::size_t size);

    // A copy of a block, aligned and with the same spare room; empty if the view is invalid.
    static DevModeBlock copyOf(const DevModeView& view);

    bool isNull() const noexcept { return m_bytes.empty(); }
    explicit operator bool() const noexcept { return !isNull(); }

    // For calls to the system; null if the block is empty.
    DEVMODEW* get() noexcept { return isNull() ? nullptr : reinterpret_cast<DEVMODEW*>(m_bytes.data()); }
    const DEVMODEW* get() const noexcept
    {
        return isNull() ? nullptr : reinterpret_cast<const DEVMODEW*>(m_bytes.data());
    }

    // Views the block as it is now. Invalid if it is empty, if the driver wrote nothing, or if it claims more bytes
    // than there are.
    DevModeView view() const noexcept { return DevModeView(std::span(m_bytes).first(m_believed)); }

private:
    std::vector<BYTE> m_bytes;
    std::size_t m_believed = 0; // how long the block may claim to be
};
