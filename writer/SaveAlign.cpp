#include "SaveAlign.h"

bool SaveAlign::operator==(const SaveAlign&) const
{
    return true;
}

bool SaveAlign::operator!=(const SaveAlign&) const
{
    return true;
}

bool SaveAlign::operator<(const SaveAlign&) const
{
    return true;
}

bool SaveAlign::operator>(const SaveAlign&) const
{
    return true;
}
