#pragma once

#include "InlineShape.h"
#include "RtfHex.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace standin::rtf {

/// The picture that a shape shows, in the size in which it shows it.
std::string pictureText(const model::InlineShape& shape);

/// Gathers what RTF says of a picture.
class PictureReader
{
public:
    void word(std::string_view word, std::int32_t number);
    void character(char16_t c) { hex_.digit(c); }
    void data(std::string_view bytes) { hex_.raw(bytes); }
    /// Nothing when the picture has a form that is not known.
    std::optional<model::InlineShape> finish() const;

private:
    std::optional<model::PictureFormat> format_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::int32_t goalWidth_ = 0; ///< twips
    std::int32_t goalHeight_ = 0;
    std::int32_t scaleX_ = 100;
    std::int32_t scaleY_ = 100;
    HexReader hex_;
};

} // namespace standin::rtf
