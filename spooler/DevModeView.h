#pragma once

#include "win32/Win32.h"

#include <cstddef>
#include <span>
#include <vector>

// A DEVMODEW comes from a driver, from another process or from a file that anyone may have edited, and says itself how
// long it is. So inside the module it never travels without the number of bytes that are really there.

// The smallest public part that can be used: through dmFields. Below that the block cannot even say what it holds.
inline constexpr std::size_t smallestDevMode = offsetof(DEVMODEW, dmFields) + sizeof(DEVMODEW::dmFields);

// Those of the given DM_* flags whose field lies whole within a public part of size bytes. Flags that stand for no
// field stay.
DWORD devModeFlagsWithin(DWORD flags, std::size_t size) noexcept;

// The bytes of a block that is known only by its address: as many as the block itself claims. For the borders of the
// module, where a signature carries no length; the caller vouches for the claim. The address may be misaligned.
std::span<const BYTE> claimedBytes(const DEVMODEW& devMode) noexcept;

// Reads a DEVMODEW out of a span of bytes that may be too short, misaligned or lying about its sizes. Refers to the
// bytes, which must outlive it, for everything behind the public part.
class DevModeView
{
public:
    // Views nothing.
    DevModeView() noexcept = default;

    // Views nothing unless bytes hold at least smallestDevMode bytes, dmSize is at least that too, and dmSize +
    // dmDriverExtra bytes are there. What follows them is not part of the block.
    explicit DevModeView(std::span<const BYTE> bytes) noexcept;

    bool isValid() const noexcept { return !m_bytes.empty(); }
    explicit operator bool() const noexcept { return isValid(); }

    // The public fields, aligned and complete: a field that does not lie whole within dmSize is 0. dmSize and dmFields
    // are as the block has them, so ask has() for a flag. The names may lack a terminator. All 0 for an invalid view.
    const DEVMODEW& fields() const noexcept { return m_fields; }

    // True when one of the flags is set and its field is there.
    bool has(DWORD flags) const noexcept { return (devModeFlagsWithin(m_fields.dmFields, size()) & flags) != 0; }

    // dmFields as it stands, flags of missing fields included.
    DWORD rawFlags() const noexcept { return m_fields.dmFields; }

    // The lengths in bytes of the two parts.
    std::size_t size() const noexcept { return m_fields.dmSize; }
    std::size_t driverExtra() const noexcept { return m_fields.dmDriverExtra; }

    // The driver's own bytes behind the public part; empty when there are none.
    std::span<const BYTE> privateBytes() const noexcept { return m_bytes.subspan(size()); }

    // The whole block: size() + driverExtra() bytes; empty for an invalid view.
    std::span<const BYTE> bytes() const noexcept { return m_bytes; }

private:
    std::span<const BYTE> m_bytes;
    DEVMODEW m_fields = {};
};

// Owns the bytes of one DEVMODEW, or none. Move it or copy it; views refer to its bytes.
class DevModeBlock
{
public:
    // None.
    DevModeBlock() noexcept = default;

    // Zeroed bytes for a driver to fill that asked for size of them. Drivers write more than they ask for (8 bytes
    // behind the block have been seen), and some read a whole DEVMODEW whatever dmSize says, so there is room to spare:
    // at least for the longest block there can be. A block that claims more than about twice what was asked for is
    // invalid all the same.
    static DevModeBlock toFill(std::size_t size);

    // A copy of a block, aligned and with the same room behind it; none when the view is invalid.
    static DevModeBlock copyOf(const DevModeView& view);

    bool isNull() const noexcept { return m_bytes.empty(); }
    explicit operator bool() const noexcept { return !isNull(); }

    // As the system's functions want it; null when there is none.
    DEVMODEW* get() noexcept { return isNull() ? nullptr : reinterpret_cast<DEVMODEW*>(m_bytes.data()); }
    const DEVMODEW* get() const noexcept
    {
        return isNull() ? nullptr : reinterpret_cast<const DEVMODEW*>(m_bytes.data());
    }

    // Reads the block as it is now. Invalid when there is none, when the driver wrote nothing, and when the block
    // claims more bytes than there are.
    DevModeView view() const noexcept { return DevModeView(std::span(m_bytes).first(m_believed)); }

private:
    std::vector<BYTE> m_bytes;
    std::size_t m_believed = 0; // how long the block may say it is
};
