#pragma once

#include <span>
#include <string>
#include <string_view>

namespace standin {
/// What a program calls the object by that a call has given, as the transcript names it: `body.Font` for a
/// property, `document.Styles(-2)` for an item, `document.Range(0, 5)` for a part. The whole text of the
/// first document is `body`. Empty for what a method makes anew.
std::string objectExpression(std::string_view receiver, std::string_view member, bool isMethod,
                             std::span<const std::string> arguments);
} // namespace standin
