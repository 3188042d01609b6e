#include "LoggedCall.h"

#include <algorithm>

namespace replay {

namespace {

constexpr std::array<MethodForm, methodCount> forms = {{
    {"start", Arguments::none, Guard::stopped},
    {"stop", Arguments::none, Guard::started},
    {"create", Arguments::text, Guard::started},
    {"close", Arguments::none, Guard::open},
    {"overrideRegistry", Arguments::setting, Guard::none},
    {"insertText", Arguments::text, Guard::open},
    {"insertEndl", Arguments::none, Guard::open},
    {"insertPageBreak", Arguments::none, Guard::open},
    {"insertField", Arguments::number, Guard::open},
    {"startHeader", Arguments::none, Guard::open},
    {"endHeader", Arguments::none, Guard::open},
    {"startFooter", Arguments::none, Guard::open},
    {"endFooter", Arguments::none, Guard::open},
    {"setStyle", Arguments::text, Guard::open},
    {"setFontName", Arguments::text, Guard::open},
    {"setFontSize", Arguments::number, Guard::open},
    {"setFontAttribute", Arguments::attribute, Guard::open},
    {"setTextAlign", Arguments::number, Guard::none},
    {"insertFile", Arguments::textAndNumber, Guard::none},
    {"insertTOC", Arguments::none, Guard::none},
    {"startTOCEntry", Arguments::none, Guard::none},
    {"endTOCEntry", Arguments::none, Guard::none},
    {"startTable", Arguments::none, Guard::none},
    {"endTable", Arguments::none, Guard::none},
    {"addRow", Arguments::none, Guard::none},
    {"addCell", Arguments::none, Guard::none},
    {"setTableRowHeight", Arguments::none, Guard::none},
    {"insertImage", Arguments::pictureAndText, Guard::none},
    {"insertTag", Arguments::text, Guard::none},
    {"insertXref", Arguments::twoTexts, Guard::none},
}};

std::string quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

std::string argumentsOf(const LoggedCall& call)
{
    const auto& [first, second, third] = call.texts;
    switch (formOf(call.method).arguments) {
    case Arguments::none:
        break;
    case Arguments::number:
        return std::to_string(call.number);
    case Arguments::attribute:
        return std::string(attributeName(call.number)) + (call.isOn ? "true" : "false");
    case Arguments::text:
        return quoted(first);
    case Arguments::textAndNumber:
        return quoted(first) + ',' + std::to_string(call.number);
    case Arguments::twoTexts:
        return quoted(first) + ',' + quoted(second);
    case Arguments::pictureAndText:
        return first + ',' + quoted(second);
    case Arguments::setting:
        return quoted(first) + ',' + quoted(second) + ',' + quoted(third) + ',' + std::to_string(call.number);
    }
    return {};
}

} // namespace

const MethodForm& formOf(Method method)
{
    return forms.at(static_cast<std::size_t>(method));
}

std::optional<Method> methodNamed(std::string_view name)
{
    const auto* const form = std::ranges::find(forms, name, &MethodForm::name);
    if (form == forms.end())
        return std::nullopt;
    return static_cast<Method>(form - forms.begin());
}

std::string_view attributeName(int number)
{
    switch (number) {
    case 1:
        return "DocBold,";
    case 2:
        return "DocItalic,";
    case 4:
        return "DocUnderline,";
    case 8:
        return "DocStrike,";
    default:
        return {};
    }
}

std::string echoOf(const LoggedCall& call)
{
    const std::string line =
        "mirovel->" + std::string(formOf(call.method).name) + '(' + argumentsOf(call) + ");\n";
    std::string echo;
    echo.reserve(line.size() + 1);
    for (const char c : line) {
        if (c == '\n' && !echo.ends_with('\r'))
            echo += '\r';
        echo += c;
    }
    return echo;
}

} // namespace replay
