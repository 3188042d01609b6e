#pragma once

#include <cstdint>
#include <string_view>

namespace standin::model {

/// Reads numbers out of bytes. Beyond their end everything is 0 and the reader has failed.
class ByteReader
{
public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    bool failed() const { return failed_; }
    std::size_t position() const { return at_; }
    std::size_t left() const { return bytes_.size() - at_; }

    std::string_view take(std::size_t count)
    {
        if (count > left()) {
            failed_ = true;
            at_ = bytes_.size();
            return {};
        }
        const std::string_view taken = bytes_.substr(at_, count);
        at_ += count;
        return taken;
    }
    void skip(std::size_t count) { take(count); }

    std::uint8_t byte() { return static_cast<std::uint8_t>(little(1)); }
    std::uint16_t word() { return static_cast<std::uint16_t>(little(2)); }
    std::uint32_t number() { return little(4); }
    std::int32_t signedNumber() { return static_cast<std::int32_t>(little(4)); }
    std::int16_t signedWord() { return static_cast<std::int16_t>(word()); }

    /// \name With the most significant byte first
    ///@{
    std::uint16_t bigWord() { return static_cast<std::uint16_t>(big(2)); }
    std::uint32_t bigNumber() { return big(4); }
    ///@}

private:
    std::uint32_t little(std::size_t count)
    {
        std::uint32_t value = 0;
        int shift = 0;
        for (const char c : take(count)) {
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << shift;
            shift += 8;
        }
        return value;
    }
    std::uint32_t big(std::size_t count)
    {
        std::uint32_t value = 0;
        for (const char c : take(count))
            value = value << 8 | static_cast<unsigned char>(c);
        return value;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

} // namespace standin::model
