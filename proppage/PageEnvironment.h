#pragma once

#include "QdxString.h"
#include "RegEntry.h"

/// What the settings page needs of the machine: stored settings and file names.
class PageEnvironment
{
public:
    virtual ~PageEnvironment() = default;

    /// The stored setting, or `defaultEntry` when there is none.
    [[nodiscard]] virtual RegEntry read(const QdxString& group, const QdxString& name,
                                        const RegEntry& defaultEntry) const = 0;
    /// Stores a setting for the user. May throw.
    virtual void write(const QdxString& group, const QdxString& name, const RegEntry& entry) = 0;

    /// True for a file that is there.
    [[nodiscard]] virtual bool fileExists(const QdxString& name) const = 0;
    /// `dir` and `name` with one separator between them; an empty `dir` gives the name alone.
    [[nodiscard]] virtual QdxString appendToDir(const QdxString& dir, const QdxString& name) const = 0;
};
