#pragma once

#include "InlineShape.h"
#include "RtfHex.h"

#include <optional>
#include <string>
#include <string_view>

namespace standin::rtf {

/// An object with its data and the picture that stands for it.
std::string objectText(const model::InlineShape& shape);

/// What an object's data says.
struct ObjectData
{
    bool isLinked = false;
    std::string className;
    std::string link;   ///< the file, of a linked object
    std::string native; ///< what the object's program stored, of an embedded one
};

std::string writeObjectData(const ObjectData& object);
/// Takes what can be read of damaged data.
ObjectData readObjectData(std::string_view bytes);

/// Gathers what RTF says of an object.
class ObjectReader
{
public:
    void classCharacter(char16_t c) { shape_.objectClass += c; }
    void digit(char16_t c) { data_.digit(c); }
    void raw(std::string_view bytes) { data_.raw(bytes); }
    /// What stands for it.
    void show(const model::InlineShape& picture);
    /// Nothing without a picture: it would have nothing to show.
    std::optional<model::InlineShape> finish() const;

private:
    model::InlineShape shape_;
    HexReader data_;
};

} // namespace standin::rtf
