#include "files/native/SystemPath.h"

std::optional<std::string> systemPath(const OdString& path)
{
    if (path.isEmpty() || path.find(OdChar()) >= 0)
        return std::nullopt;
    std::string text = odToUtf8(path);
    if (odFromUtf8(text) != path.view())
        return std::nullopt;
    return text;
}
