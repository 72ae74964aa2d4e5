#include "host/CGarmPath.h"

CGarmPath::CGarmPath(const OdString& path)
{
    OdStringView rest = path.view();
    const OdChar letter = rest.empty() ? OdChar() : odFoldCase(rest[0]);
    if (rest.size() >= 2 && rest[1] == ':' && letter >= 'a' && letter <= 'z')
    {
        m_drive = rest.substr(0, 2);
        rest.remove_prefix(2);
    }

    const auto separator = rest.find_last_of(OD_T("/\\"));
    const std::size_t folderLength = separator == rest.npos ? 0 : separator + 1;
    m_folder = rest.substr(0, folderLength);
    rest.remove_prefix(folderLength);

    const auto dot = rest.rfind('.');
    m_name = rest.substr(0, dot);
    if (dot != rest.npos)
        m_extension = rest.substr(dot);
}
