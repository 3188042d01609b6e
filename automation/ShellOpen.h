#pragma once

#include "QdxString.h"

#include <functional>

/// Opens a file with the program registered for it, in a window of its own. Whether that works is not told.
void shellOpen(const QdxString& fileName);

/// While alive, takes the shell's place. Overrides nest; made and destroyed on the thread that opens.
class ShellOpenOverride
{
public:
    using Opener = std::function<void(const QdxString& fileName)>;

    explicit ShellOpenOverride(Opener opener);
    ~ShellOpenOverride();
    ShellOpenOverride(const ShellOpenOverride&) = delete;
    ShellOpenOverride& operator=(const ShellOpenOverride&) = delete;

private:
    friend void shellOpen(const QdxString& fileName);

    Opener opener_;
    ShellOpenOverride* outer_;
};
