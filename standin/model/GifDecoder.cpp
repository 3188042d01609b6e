#include "GifDecoder.h"

#include "ByteReader.h"

#include <algorithm>

namespace standin::model {

namespace {

constexpr std::size_t mostPixels = 1 << 26;

/// Undoes the compression: codes of growing length, each a string of pixels that an earlier one made known.
class CodeReader
{
public:
    CodeReader(std::string_view data, int smallestBits) : data_(data), smallestBits_(smallestBits)
    {
        clear();
    }

    /// Fails (false) for a code that cannot be there and for data that ends early.
    bool read(std::string& pixels, std::size_t count)
    {
        while (pixels.size() < count) {
            const std::optional<unsigned> code = next();
            if (!code || *code == endCode()) {
                return false;
            }
            if (*code == clearCode()) {
                clear();
            } else if (!append(*code, pixels)) {
                return false;
            }
        }
        pixels.resize(count);
        return true;
    }

private:
    static constexpr unsigned mostCodes = 4096;
    static constexpr unsigned none = mostCodes;

    struct Entry
    {
        unsigned before = none;
        char pixel = 0;
    };

    unsigned clearCode() const { return 1u << smallestBits_; }
    unsigned endCode() const { return clearCode() + 1; }

    void clear()
    {
        entries_.resize(endCode() + 1);
        for (unsigned i = 0; i < clearCode(); ++i) {
            entries_[i] = {none, static_cast<char>(i)};
        }
        bits_ = smallestBits_ + 1;
        previous_ = none;
    }

    std::optional<unsigned> next()
    {
        unsigned code = 0;
        for (int bit = 0; bit < bits_; ++bit, ++at_) {
            if (at_ / 8 >= data_.size()) {
                return std::nullopt;
            }
            code |= (static_cast<unsigned char>(data_[at_ / 8]) >> at_ % 8 & 1u) << bit;
        }
        return code;
    }

    bool append(unsigned code, std::string& pixels)
    {
        if (code > entries_.size() || (code == entries_.size() && previous_ == none)) {
            return false;
        }
        // A code that is not known yet can only be the one that this step makes known.
        const bool isNew = code == entries_.size();
        const std::string text = textOf(isNew ? previous_ : code);
        pixels += text;
        if (isNew) {
            pixels += text.front();
        }
        if (previous_ != none && entries_.size() < mostCodes) {
            entries_.push_back({previous_, text.front()});
            if (entries_.size() == 1u << bits_ && bits_ < 12) {
                ++bits_;
            }
        }
        previous_ = code;
        return code < entries_.size();
    }

    std::string textOf(unsigned code) const
    {
        std::string text;
        for (; code != none; code = entries_[code].before) {
            text += entries_[code].pixel;
        }
        std::reverse(text.begin(), text.end());
        return text;
    }

    std::string_view data_;
    int smallestBits_;
    int bits_ = 0;
    std::size_t at_ = 0; ///< bits
    std::vector<Entry> entries_;
    unsigned previous_ = none;
};

std::vector<IndexedImage::Color> readPalette(ByteReader& reader, unsigned flags)
{
    std::vector<IndexedImage::Color> palette;
    if ((flags & 0x80) != 0) {
        palette.resize(2u << (flags & 7));
        for (IndexedImage::Color& color : palette) {
            color = {reader.byte(), reader.byte(), reader.byte()};
        }
    }
    return palette;
}

std::string readBlocks(ByteReader& reader)
{
    std::string data;
    for (std::size_t size = reader.byte(); size != 0; size = reader.byte()) {
        data += reader.take(size);
    }
    return data;
}

/// The order in which the rows of an interlaced image come.
std::vector<std::uint32_t> rowOrder(std::uint32_t height, bool interlaced)
{
    std::vector<std::uint32_t> order;
    const auto pass = [&](std::uint32_t first, std::uint32_t step) {
        for (std::uint32_t row = first; row < height; row += step) {
            order.push_back(row);
        }
    };
    if (interlaced) {
        pass(0, 8);
        pass(4, 8);
        pass(2, 4);
        pass(1, 2);
    } else {
        pass(0, 1);
    }
    return order;
}

class Decoder
{
public:
    explicit Decoder(std::string_view file) : reader_(file) {}

    std::optional<IndexedImage> decode()
    {
        const std::string_view signature = reader_.take(6);
        if (signature != "GIF87a" && signature != "GIF89a") {
            return std::nullopt;
        }
        image_.width = reader_.word();
        image_.height = reader_.word();
        const unsigned flags = reader_.byte();
        background_ = reader_.byte();
        reader_.skip(1);
        image_.palette = readPalette(reader_, flags);
        while (!reader_.failed()) {
            switch (reader_.byte()) {
            case '!':
                readExtension();
                break;
            case ',':
                return readImage();
            default:
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

private:
    void readExtension()
    {
        constexpr int graphicControl = 0xF9;
        const bool isControl = reader_.byte() == graphicControl;
        const std::string data = readBlocks(reader_);
        if (isControl && data.size() >= 4 && (data[0] & 1) != 0) {
            image_.transparent = static_cast<std::uint8_t>(data[3]);
        }
    }

    std::optional<IndexedImage> readImage()
    {
        const std::uint32_t left = reader_.word();
        const std::uint32_t top = reader_.word();
        const std::uint32_t width = reader_.word();
        const std::uint32_t height = reader_.word();
        const unsigned flags = reader_.byte();
        if (std::vector<IndexedImage::Color> own = readPalette(reader_, flags); !own.empty()) {
            image_.palette = std::move(own);
        }
        const int bits = reader_.byte();
        const std::string data = readBlocks(reader_);
        image_.width = std::max(image_.width, left + width);
        image_.height = std::max(image_.height, top + height);
        const bool fits = std::size_t{image_.width} * image_.height <= mostPixels;
        if (width == 0 || height == 0 || bits < 2 || bits > 8 || image_.palette.empty() || !fits) {
            return std::nullopt;
        }
        std::string pixels;
        if (!CodeReader(data, bits).read(pixels, std::size_t{width} * height)) {
            return std::nullopt;
        }
        image_.pixels.assign(std::size_t{image_.width} * image_.height,
                             static_cast<char>(image_.transparent.value_or(background_)));
        std::size_t from = 0;
        for (const std::uint32_t row : rowOrder(height, (flags & 0x40) != 0)) {
            pixels.copy(image_.pixels.data() + std::size_t{top + row} * image_.width + left, width, from);
            from += width;
        }
        image_.palette.resize(256);
        return std::move(image_);
    }

    ByteReader reader_;
    IndexedImage image_;
    std::uint8_t background_ = 0;
};

} // namespace

std::optional<IndexedImage> decodeGif(std::string_view file)
{
    return Decoder(file).decode();
}

} // namespace standin::model
