#include "pia_tree/CPIAParser.h"

#include "files/FileAccess.h"
#include "pia_tree/Container.h"
#include "pia_tree/Limits.h"
#include "pia_tree/ParsedTree.h"

#include <exception>

CPIAParser::CPIAParser() = default;

CPIAParser::~CPIAParser() = default;

bool CPIAParser::read(const OdChar* path)
{
    return load([path](files::ByteBuffer& file) { return files::readFile(path, file); });
}

bool CPIAParser::parse(std::string_view bytes)
{
    return load(
        [bytes](files::ByteBuffer& file) -> const char*
        {
            if (bytes.size() > files::maxFileBytes)
                return "the file is too large";
            file = files::ByteBuffer(bytes.size());
            bytes.copy(file.data(), bytes.npos);
            file.setSize(bytes.size());
            return nullptr;
        });
}

// loadFile puts the bytes of the file into its argument, or returns the reason why it failed.
template <class Load>
bool CPIAParser::load(Load loadFile) noexcept
{
    m_root.reset();
    m_line = 0;
    try
    {
        files::ByteBuffer file;
        m_reason = loadFile(file);
        if (!m_reason)
            m_reason = take(std::move(file));
    }
    catch (const std::exception&)
    {
        m_reason = "there is not enough memory";
    }
    if (m_reason)
        return false;
    m_reason = "";
    return true;
}

const char* CPIAParser::take(files::ByteBuffer file)
{
    files::ByteBuffer text;
    if (const char* reason = pia::unpack(std::move(file), text))
        return reason;
    pia::TextFailure failure;
    auto tree = pia::ParsedTree::parse(std::move(text), failure);
    m_line = failure.line;
    if (!tree)
        return failure.reason;
    const auto range = tree->root();
    m_root.reset(new CPBlock(OdString(), std::move(tree), range.first, range.count));
    return nullptr;
}
