#pragma once

#include "general/QdxLogBase.h"

#include <stdexcept>
#include <utility>

namespace detail {

/// All categories are off.
class SilentLog : public QdxLogBase
{
public:
    bool isOn(const char*) override { return false; }
    QdxLogBase& operator<<(const char*) override { return *this; }
    QdxLogBase& operator<<(Manipulator) override { return *this; }
};

inline QdxLogBase*& exceptionLog()
{
    static SilentLog silentLog;
    static QdxLogBase* log = &silentLog;
    return log;
}

} // namespace detail

/// What went wrong, in words for the user. Thrown to in-process clients; header-only, so that a host can
/// catch it without linking to the DLL. Copying never fails.
class QdxException : public std::runtime_error
{
public:
    explicit QdxException(const char* reason) : std::runtime_error(reason) {}
    /// Any string with data(), such as QdxString.
    template <class String>
    requires requires(const String& s) { static_cast<const char*>(s.data()); }
    explicit QdxException(const String& reason) : std::runtime_error(reason.data()) {}

    [[nodiscard]] const char* reasonText() const noexcept { return what(); }

    /// The log of this module (the DLL's and the host's are two), never null. All its categories
    /// are off until the module puts another one in its place.
    [[nodiscard]] static QdxLogBase* getLog() { return detail::exceptionLog(); }
    /// Puts another log in its place and returns the former one. Not owned; must outlive its use.
    static QdxLogBase* setLog(QdxLogBase* log) { return std::exchange(detail::exceptionLog(), log); }
};
