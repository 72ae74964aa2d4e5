#include "pia_tree/CPIAOutput.h"

#include "files/FileAccess.h"
#include "pia_tree/TextWriter.h"

#include <exception>

// storeFile receives the bytes of the file and returns null, or the reason why it failed.
template <class Store>
bool CPIAOutput::save(const CPBlock& root, pia::Form form, Store storeFile) noexcept
{
    try
    {
        files::ByteBuffer text;
        files::ByteBuffer file;
        m_reason = pia::writeText(root, text);
        if (!m_reason)
            m_reason = pia::pack(text.view(), form, file);
        if (!m_reason)
            m_reason = storeFile(file.view());
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

bool CPIAOutput::write(const CPBlock& root, const OdChar* path, pia::Form form)
{
    return save(root, form, [path](std::string_view file) { return files::replaceFile(path, file); });
}

bool CPIAOutput::writeToMemory(const CPBlock& root, std::string& bytes, pia::Form form)
{
    return save(root, form,
                [&bytes](std::string_view file) -> const char*
                {
                    bytes = file;
                    return nullptr;
                });
}
