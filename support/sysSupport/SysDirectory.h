#pragma once

#include "QdxObject.h"
#include "QdxString.h"

class SysDirectory : public QdxObject
{
public:
    /// The process's current directory, without a separator at its end (but "c:\"). Empty when Windows cannot
    /// tell.
    [[nodiscard]] static QdxString current();
};
