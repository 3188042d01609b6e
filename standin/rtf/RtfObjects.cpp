#include "RtfObjects.h"

#include "ByteReader.h"
#include "PlainText.h"
#include "RtfPictures.h"
#include "RtfText.h"

#include <algorithm>
#include <utility>

namespace standin::rtf {

namespace {

using namespace model;

constexpr std::uint32_t version = 0x501;
constexpr std::uint32_t linkedForm = 1;
constexpr std::uint32_t embeddedForm = 2;

std::string number(std::size_t value)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

/// With its length in front and a zero byte behind; an empty text is its length alone.
std::string counted(const std::string& text)
{
    return text.empty() ? number(0) : number(text.size() + 1) + text + '\0';
}

std::string readCounted(ByteReader& reader)
{
    const std::string_view text = reader.take(reader.number());
    return std::string(text.substr(0, text.find('\0')));
}

/// The code page of the data is 1252; what it does not have becomes a question mark.
std::string narrow(const std::u16string& text)
{
    std::string result;
    for (const char16_t c : text)
        result += c < 0x80 || (c >= 0xA0 && c <= 0xFF) ? static_cast<char>(c) : '?';
    return result;
}

} // namespace

std::string objectText(const InlineShape& shape)
{
    ObjectData object;
    object.isLinked = shape.type == InlineShapeType::linkedObject;
    object.className = narrow(shape.objectClass);
    object.link = narrow(shape.link);
    object.native = shape.objectData;
    return std::string("{\\object") + (object.isLinked ? "\\objlink" : "\\objemb") +
           control("\\objw", std::max(1, twips(shape.width))) +
           control("\\objh", std::max(1, twips(shape.height))) + "{\\*\\objclass " +
           escapeText(shape.objectClass) + "}{\\*\\objdata" + hexText(writeObjectData(object)) +
           "}{\\result" + pictureText(shape) + "}}";
}

std::string writeObjectData(const ObjectData& object)
{
    std::string bytes = number(version) + number(object.isLinked ? linkedForm : embeddedForm) +
                        counted(object.className) + counted(object.link) + counted("");
    if (object.isLinked)
        bytes += number(0) + number(0) + number(0); // no network name; links are updated by themselves
    else
        bytes += number(object.native.size()) + object.native;
    return bytes + number(version) + number(0); // no picture: RTF has its own
}

ObjectData readObjectData(std::string_view bytes)
{
    ByteReader reader(bytes);
    ObjectData object;
    reader.skip(4);
    object.isLinked = reader.number() == linkedForm;
    object.className = readCounted(reader);
    object.link = readCounted(reader);
    readCounted(reader);
    if (!object.isLinked)
        object.native = reader.take(reader.number());
    return object;
}

void ObjectReader::show(const InlineShape& picture)
{
    shape_.picture = picture.picture;
    shape_.width = picture.width;
    shape_.height = picture.height;
}

std::optional<InlineShape> ObjectReader::finish() const
{
    if (!shape_.picture)
        return {};
    const auto isControl = [](char16_t c) { return c < u' '; };
    ObjectData data = readObjectData(data_.bytes());
    InlineShape shape = shape_;
    std::ranges::replace_if(shape.objectClass, isControl, u' ');
    shape.type = data.isLinked ? InlineShapeType::linkedObject : InlineShapeType::embeddedObject;
    shape.objectData = std::move(data.native);
    for (const char c : data.link)
        shape.link += fromAnsi(static_cast<unsigned char>(c));
    std::ranges::replace_if(shape.link, isControl, u' ');
    return shape;
}

} // namespace standin::rtf
