#pragma once

#include "LiveRange.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

/// Ends the run: the fuzzer shows the input that led here.
[[noreturn]] inline void fail(const std::string& what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

/// The fuzzer's bytes, and as many others made from them as are wanted behind: long sequences of edits find
/// what short inputs cannot.
class FuzzerInput
{
public:
    using Position = standin::model::Position;

    FuzzerInput(const std::uint8_t* data, std::size_t size, std::size_t made = 0)
        : data_(data), size_(size), made_(made)
    {
        for (std::size_t i = 0; i < size; ++i)
            state_ = (state_ ^ data[i]) * 0x01000193u;
    }
    bool isEmpty() const { return at_ >= size_ + made_; }
    /// Past the end, too: an edit that has begun gets what it asks for.
    std::uint8_t next()
    {
        if (at_ < size_)
            return data_[at_++];
        ++at_;
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<std::uint8_t>(state_ >> 24);
    }
    Position below(Position limit) { return static_cast<Position>((next() << 8 | next()) % limit); }
    /// Of up to five characters that matter to the model.
    std::u16string text()
    {
        static constexpr char16_t alphabet[] = {u'a', u'b', u' ', u'\r', u'\v', u'\f', 0xD800, 0x263A};
        std::u16string text;
        for (int count = next() % 6; count > 0; --count)
            text += alphabet[next() % std::size(alphabet)];
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t made_;
    std::size_t at_ = 0;
    std::uint32_t state_ = 0x811c9dc5u;
};
