#pragma once

#include "Event.h"

#include "QdxString.h"

#include <memory>
#include <string>
#include <string_view>

namespace diagnostics {

class LogFile;

/// Writes down what happens to one object, a line for each event, when somebody has named a file for it. Off,
/// it costs a branch.
///
/// Nothing here raises, and no event is a reason for a document to fail: what cannot be written is dropped.
///
/// Threading: that of the object. Objects on several threads may share a file.
class Diagnostics
{
public:
    /// Off. The objects of a process are numbered from 1.
    Diagnostics() noexcept;
    ~Diagnostics();
    Diagnostics(const Diagnostics&) = delete;
    Diagnostics& operator=(const Diagnostics&) = delete;

    /// Writes to the file of that name from now on (`logFileName`); the one open already stays open. Empty:
    /// off. The environment variable MIROVEL_DIAGNOSTICS, when it is not empty, is the name instead.
    ///
    /// Where that file cannot be written, the one of its bare name in the temporary folder takes its place.
    /// Its first line, and the debugger's output, say so, once for each name in a process.
    void open(std::wstring_view name) noexcept;
    [[nodiscard]] bool isOn() const noexcept { return file_ != nullptr; }
    /// Empty when it is off.
    [[nodiscard]] const std::wstring& path() const noexcept { return path_; }

    void setDocument(std::wstring_view fileName) noexcept;
    /// A literal; null: none. Returns the former one.
    const char* setMethod(const char* method) noexcept;

    void write(const Event& event) noexcept;
    /// Writes the event that `make` gives, which is asked only when diagnostics are on.
    template <class Make>
    void tell(const Make& make) noexcept
    {
        if (isOn()) [[unlikely]]
            tellNow(make);
    }

private:
    template <class Make>
    void tellNow(const Make& make) noexcept
    try {
        write(make());
    } catch (...) {
        // Out of memory: the event is dropped.
    }

    void openFile(std::wstring_view name);

    unsigned object_;
    std::string document_;
    const char* method_ = nullptr;
    std::wstring name_; ///< as it was given
    std::wstring path_;
    std::shared_ptr<LogFile> file_;
};

} // namespace diagnostics
