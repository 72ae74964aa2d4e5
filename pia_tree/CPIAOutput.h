#pragma once

#include "pia_tree/CPBlock.h"
#include "pia_tree/Container.h"

#include <string>

// Writes a PC3 file, children in stored order. The file is replaced in one step: after a failure the old one is intact.
// A tree that could not be read back (beyond a limit, or a root with a name) is refused without touching the disk.
// Nothing here throws: running out of memory is a failed write.
class CPIAOutput
{
public:
    bool write(const CPBlock& root, const OdChar* path, pia::Form form = pia::Form::compressed);

    // Puts the bytes of the file into the output, which is untouched after a failure.
    bool writeToMemory(const CPBlock& root, std::string& bytes, pia::Form form = pia::Form::compressed);

    // Why the last write failed, in plain English for tools; "" after success.
    const char* reason() const noexcept { return m_reason; }

private:
    template <class Store>
    bool save(const CPBlock& root, pia::Form form, Store storeFile) noexcept;

    const char* m_reason = "";
};
