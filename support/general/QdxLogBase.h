#pragma once

#include <ostream>

/// A log with categories that can be switched on by name.
class QdxLogBase
{
public:
    using Manipulator = std::ostream& (*)(std::ostream&);

    virtual ~QdxLogBase() = default;
    /// Whether the named category ("Throw", "Catch") is switched on.
    virtual bool isOn(const char* category) = 0;
    virtual QdxLogBase& operator<<(const char* text) = 0;
    /// `std::endl`: ends the line.
    virtual QdxLogBase& operator<<(Manipulator endOfLine) = 0;

protected:
    QdxLogBase() = default;
    QdxLogBase(const QdxLogBase&) = default;
    QdxLogBase& operator=(const QdxLogBase&) = default;
};
