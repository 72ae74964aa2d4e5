#pragma once

// Whether the system is Wine, by the registry key of its settings; what the key holds does not matter.
bool runsUnderWine() noexcept;
