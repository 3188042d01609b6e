#include "StyleNumber.h"

#include <cstdlib>

int styleNumber(const QdxString& prefix, const QdxString& styleName)
{
    return styleName.length() <= prefix.length() ? 0 : std::atoi(styleName.data() + prefix.length());
}
