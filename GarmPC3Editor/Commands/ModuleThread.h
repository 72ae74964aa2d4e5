#pragma once

// Runs work(context) on a thread of its own that nobody waits for. While it runs the module stays loaded, also when the
// host lets go of it meanwhile. False when the thread cannot be started: work is then not called and context stays with
// the caller.
bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept;
