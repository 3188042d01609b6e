#pragma once

#include "general/QdxLogBase.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <utility>

namespace detail {

/// The log of exceptions thrown and caught: off, unless the environment variable MIROVEL_EXCEPTION_LOG names
/// a file when it is first asked for. Then all categories are on and lines are appended to that file.
class ExceptionFileLog : public QdxLogBase
{
public:
    ExceptionFileLog() : file_(openFile(), &std::fclose) {}

    bool isOn(const char*) override { return file_ != nullptr; }
    QdxLogBase& operator<<(const char* text) override
    {
        if (file_)
            std::fputs(text, file_.get());
        return *this;
    }
    QdxLogBase& operator<<(Manipulator) override
    {
        if (file_) {
            std::fputc('\n', file_.get());
            std::fflush(file_.get());
        }
        return *this;
    }

private:
    static std::FILE* openFile()
    {
        const char* const name = std::getenv("MIROVEL_EXCEPTION_LOG");
        return name && *name ? std::fopen(name, "a") : nullptr;
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

inline QdxLogBase*& exceptionLog()
{
    static ExceptionFileLog fileLog;
    static QdxLogBase* log = &fileLog;
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

    /// The log of this module (the DLL's and the host's are two), never null. By default it is off, unless
    /// the environment variable MIROVEL_EXCEPTION_LOG names a file when it is first asked for: then every
    /// category is on and lines are appended to that file.
    [[nodiscard]] static QdxLogBase* getLog() { return detail::exceptionLog(); }
    /// Puts another log in its place and returns the former one. Not owned; must outlive its use.
    static QdxLogBase* setLog(QdxLogBase* log) { return std::exchange(detail::exceptionLog(), log); }
};
