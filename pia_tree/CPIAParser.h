#pragma once

#include "pia_tree/CPBlock.h"

#include <memory>
#include <string_view>

namespace files
{
class ByteBuffer;
}

// Reads a PC3 file. The root lives as long as the parser or until its next read; after a failed read there is none.
// Nothing here throws: running out of memory is a failed read.
class CPIAParser
{
public:
    CPIAParser();
    ~CPIAParser();
    CPIAParser(const CPIAParser&) = delete;
    CPIAParser& operator=(const CPIAParser&) = delete;

    // Null and "" are no files.
    bool read(const OdChar* path);
    // The same for bytes that were read elsewhere.
    bool parse(std::string_view bytes);

    // Null means that nothing was read.
    const CPBlock* root() const noexcept { return m_root.get(); }

    // Why the last read failed, in plain English for tools ("" after success), and the line of the text it happened in
    // (1 is the first; 0 when it is not about a line).
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
