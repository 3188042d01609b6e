#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace compose {

/// Takes numbers and pieces out of a file, one behind the other. Beyond its end everything is 0 and empty,
/// and the reading has failed.
class FileBytes
{
public:
    explicit FileBytes(std::string_view bytes) : left_(bytes) {}

    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    [[nodiscard]] std::size_t left() const { return left_.size(); }

    std::string_view take(std::size_t count)
    {
        if (count > left_.size()) {
            hasFailed_ = true;
            left_ = {};
            return {};
        }
        const std::string_view taken = left_.substr(0, count);
        left_.remove_prefix(count);
        return taken;
    }
    void skip(std::size_t count) { take(count); }

    std::uint32_t byte() { return bigEndian(1); }
    std::uint32_t little16() { return littleEndian(2); }
    std::uint32_t little32() { return littleEndian(4); }
    std::int32_t signed32() { return static_cast<std::int32_t>(littleEndian(4)); }
    std::uint32_t big16() { return bigEndian(2); }
    std::uint32_t big32() { return bigEndian(4); }

private:
    std::uint32_t littleEndian(std::size_t count)
    {
        std::uint32_t number = 0;
        unsigned place = 0;
        for (const char byte : take(count)) {
            number |= std::uint32_t{static_cast<unsigned char>(byte)} << place;
            place += 8;
        }
        return number;
    }
    std::uint32_t bigEndian(std::size_t count)
    {
        std::uint32_t number = 0;
        for (const char byte : take(count))
            number = number << 8U | static_cast<unsigned char>(byte);
        return number;
    }

    std::string_view left_;
    bool hasFailed_ = false;
};

} // namespace compose
