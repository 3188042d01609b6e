#include "FontSave.h"

void FontSave::setFont(const FontData& font)
{
    font_ = font;
}

void FontSave::setCell(std::int16_t row, std::int16_t col)
{
    row_ = row;
    col_ = col;
}

bool FontSave::operator==(const FontSave&) const
{
    return true;
}

bool FontSave::operator!=(const FontSave&) const
{
    return true;
}

bool FontSave::operator<(const FontSave&) const
{
    return true;
}

bool FontSave::operator>(const FontSave&) const
{
    return true;
}
