#pragma once

#include "kernel/OdRxModule.h"

// The module object, null when there is none. A reference on it is a lock: the host does not let the module go
// meanwhile. Defined by the module's entry; a program that uses the commands without a module defines its own.
OdRxModule* garmPC3EditorModule() noexcept;
