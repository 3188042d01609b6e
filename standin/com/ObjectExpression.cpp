#include "ObjectExpression.h"

namespace standin {
namespace {
/// In parentheses, without those that are missing at the end.
std::string listed(std::span<const std::string> arguments)
{
    while (!arguments.empty() && arguments.back() == "missing")
        arguments = arguments.first(arguments.size() - 1);
    std::string text;
    for (const std::string& argument : arguments)
        text += (text.empty() ? "(" : ", ") + argument;
    return text.empty() ? text : text + ')';
}
} // namespace

std::string objectExpression(std::string_view receiver, std::string_view member, bool isMethod,
                             std::span<const std::string> arguments)
{
    const std::string owner(receiver);
    const std::string given = listed(arguments);
    if (member == "Item") // the member that programs leave out
        return owner + given;
    if (member == "Range" && isMethod && given.empty())
        return owner == "document" ? "body" : owner + ".body";
    if (!isMethod || member == "Range" || member == "Cell")
        return owner + '.' + std::string(member) + given;
    return {};
}
} // namespace standin
