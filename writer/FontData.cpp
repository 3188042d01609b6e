#include "FontData.h"

void FontData::clear()
{
    name = "";
    size = 0;
    bold = italic = underline = strikeThrough = 0;
}

bool FontData::operator!=(const FontData& other) const
{
    return name != other.name || size != other.size || bold != other.bold || italic != other.italic ||
           underline != other.underline || strikeThrough != other.strikeThrough;
}
