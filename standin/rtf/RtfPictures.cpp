#include "RtfPictures.h"

#include "RtfText.h"

#include <algorithm>
#include <map>

namespace standin::rtf {

namespace {

using namespace model;

std::string_view formatWord(PictureFormat format)
{
    switch (format) {
    case PictureFormat::png:
        return "\\pngblip";
    case PictureFormat::jpeg:
        return "\\jpegblip";
    case PictureFormat::emf:
        return "\\emfblip";
    case PictureFormat::wmf:
        return "\\wmetafile8";
    case PictureFormat::dib:
        break;
    }
    return "\\dibitmap0";
}

/// Older readers know these forms; the others stand in a group that they skip.
bool isOldForm(PictureFormat format)
{
    return format == PictureFormat::wmf || format == PictureFormat::dib;
}

float shownLength(std::int32_t goal, std::int32_t natural, std::int32_t scale)
{
    constexpr float least = 0.05f;
    constexpr float largest = 1584;
    const float points = static_cast<float>(goal > 0 ? goal : natural * 15) / 20; // 15 twips a pixel
    return std::clamp(points * static_cast<float>(scale) / 100, least, largest);
}

} // namespace

std::string pictureText(const InlineShape& shape)
{
    const Picture& picture = *shape.picture;
    const std::string text =
        "{\\pict" + std::string(formatWord(picture.format)) + control("\\picw", picture.pixelWidth) +
        control("\\pich", picture.pixelHeight) + control("\\picwgoal", std::max(1, twips(shape.width))) +
        control("\\pichgoal", std::max(1, twips(shape.height))) + hexText(picture.bytes) + "}";
    return isOldForm(picture.format) ? text : "{\\*\\shppict" + text + "}";
}

void PictureReader::word(std::string_view word, std::int32_t number)
{
    static const std::map<std::string_view, PictureFormat> formats = {{"pngblip", PictureFormat::png},
                                                                      {"jpegblip", PictureFormat::jpeg},
                                                                      {"emfblip", PictureFormat::emf},
                                                                      {"wmetafile", PictureFormat::wmf},
                                                                      {"dibitmap", PictureFormat::dib}};
    static const std::map<std::string_view, std::int32_t PictureReader::*> numbers = {
        {"picw", &PictureReader::width_},         {"pich", &PictureReader::height_},
        {"picwgoal", &PictureReader::goalWidth_}, {"pichgoal", &PictureReader::goalHeight_},
        {"picscalex", &PictureReader::scaleX_},   {"picscaley", &PictureReader::scaleY_}};
    if (const auto format = formats.find(word); format != formats.end())
        format_ = format->second;
    else if (const auto place = numbers.find(word); place != numbers.end())
        this->*place->second = std::clamp(number, 0, 1000000);
}

std::optional<InlineShape> PictureReader::finish() const
{
    if (!format_)
        return std::nullopt;
    InlineShape shape;
    shape.width = shownLength(goalWidth_, width_, scaleX_);
    shape.height = shownLength(goalHeight_, height_, scaleY_);
    Picture picture{*format_, hex_.bytes(), shape.width, shape.height, width_, height_};
    if (const std::optional<Picture> known = readPicture(hex_.bytes())) {
        picture.width = known->width;
        picture.height = known->height;
    }
    shape.picture = std::make_shared<const Picture>(std::move(picture));
    return shape;
}

} // namespace standin::rtf
