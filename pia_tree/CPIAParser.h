#pragma once

#include "pia_tree/CPBlock.h"

#include <memory>
#include <string_view>

namespace files
{
class ByteBuffer;
}

// Reads a PC3 file. The root is valid until the parser's next read or its end; after a failed read there is none.
// Nothing here throws: running out of memory is a failed read.
class CPIAParser
{
public:
    CPIAParser();
    ~CPIAParser();
    CPIAParser(const CPIAParser&) = delete;
    CPIAParser& operator=(const CPIAParser&) = delete;

    // Null and "" are refused.
    bool read(const OdChar* path);
    // The same for bytes that were already read.
    bool parse(std::string_view bytes);

    // Null if nothing was read.
    const CPBlock* root() const noexcept { return m_root.get(); }

    // Why the last read failed, in plain English for tools ("" after success), and the line of the text where it failed
    // (the first is 1; 0 if it does not concern a line).
    const char* reason() const noexcept { return m_reason; }
    unsigned line() const noexcept { return m_line; }

private:
    template <class Load>
    bool load(Load loadFile) noexcept;
    const char* take(files::ByteBuffer file);

    std::unique_ptr<const CPBlock> m_root;
    const char* m_reason = "";
    unsigned m_line = 0;
};
