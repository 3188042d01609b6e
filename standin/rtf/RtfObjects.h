#pragma once

#include "InlineShape.h"
#include "RtfHex.h"

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

} // namespace standin::rtf
