#pragma once

namespace plothost
{
// Whether the system shows windows to this program at all: it does not without a display.
bool canShowWindows();

// The line for the user when it does not.
inline constexpr const char* noDisplay = "there is no display to show a window on";
} // namespace plothost
