#pragma once

#include "Silence.h"

#include <chrono>
#include <cstddef>
#include <string_view>

/// Hears from a writer what its calls do not tell a client.
///
/// Threading: that of the writer.
class WriterEvents
{
public:
    virtual ~WriterEvents() = default;

    /// The call in hand, or a part of it, does nothing. `concerned`: a name; empty: none.
    virtual void ignored(Silence why, std::wstring_view concerned) noexcept = 0;

    /// What waited has been brought into Word.
    struct Flush
    {
        std::size_t operations = 0; ///< Word calls or a few each
        std::size_t fragments = 0;
        std::chrono::milliseconds time{};
    };
    virtual void flushed(const Flush& flush) noexcept = 0;
    /// Bringing in what waited has failed, at something that earlier calls of the client's said.
    virtual void flushFailed(std::u16string_view clientCall) noexcept = 0;
    /// Word did not take content as a piece of rich text of that many bytes; it goes call by call.
    virtual void fragmentRefused(std::size_t size) noexcept = 0;
};
