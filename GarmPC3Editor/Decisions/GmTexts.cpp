#include "GarmPC3Editor/Decisions/GmTexts.h"

OdString formatText(OdStringView format, std::initializer_list<OdString> arguments)
{
    OdString result;
    auto next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i)
    {
        const OdChar following = i + 1 < format.size() ? format[i + 1] : OdChar();
        if (format[i] != '%' || (following != 's' && following != 'd' && following != '%'))
        {
            result += format[i];
            continue;
        }
        ++i;
        if (following == '%')
            result += following;
        else if (next != arguments.end())
            result += *next++;
    }
    return result;
}
