#include "RtfStyleSheet.h"

#include "RtfDefaults.h"

namespace standin::rtf {

using namespace model;

namespace {

bool buildsOn(const Style& style, const Style& wanted)
{
    for (const Style* each = &style; each; each = each->base())
        if (each == &wanted)
            return true;
    return false;
}

} // namespace

bool StyleSheetReader::take(std::string_view word, std::int32_t number, const ColorTableReader& colors)
{
    static const std::map<std::string_view, StyleType> types = {
        {"s", StyleType::paragraph}, {"cs", StyleType::character}, {"ts", StyleType::table}};
    if (const auto type = types.find(word); type != types.end()) {
        entry_.number = number;
        entry_.type = type->second;
        return true;
    }
    if (word == "sbasedon") {
        entry_.base = number;
        return true;
    }
    if (word == "snext") {
        entry_.next = number;
        return true;
    }
    return entry_.type == StyleType::table && entry_.table.take(word, number, colors);
}

void StyleSheetReader::finish(const FontProperties& font, const ParagraphProperties& paragraph,
                              const FontProperties& plain)
{
    const std::size_t first = entry_.name.find_first_not_of(u' ');
    if (first != std::u16string::npos) {
        const std::u16string name = entry_.name.substr(first);
        StylePtr style = document_.styles().find(name);
        if (!style)
            style = document_.styles().add(name, entry_.type);
        if (style->type() == entry_.type) {
            styles_[entry_.number] = style;
            if (entry_.type == StyleType::paragraph)
                defineParagraphStyle(*style, font, paragraph);
            else if (entry_.type == StyleType::table)
                entry_.table.define(style->table, fontBeyond(font, plain));
            else
                style->font = fontBeyond(font, plain);
        }
    }
    entry_ = {};
}

const Style* StyleSheetReader::style(std::int32_t number, StyleType type) const
{
    const auto found = styles_.find(number);
    return found != styles_.end() && found->second->type() == type ? found->second.get() : nullptr;
}

void StyleSheetReader::defineParagraphStyle(Style& style, const FontProperties& font,
                                            const ParagraphProperties& paragraph)
{
    const auto base = styles_.find(entry_.base);
    const bool isNormal = &style == &normal();
    definesNormal_ = definesNormal_ || isNormal;
    if (!isNormal && base != styles_.end() && base->second->type() == StyleType::paragraph &&
        !buildsOn(*base->second, style))
        style.setBase(base->second.get());
    if (isNormal || !style.base()) {
        style.font = font;
        style.paragraph = paragraph;
    } else {
        style.font = fontBeyond(font, style.base()->resolvedFont());
        style.paragraph = paragraphBeyond(paragraph, style.base()->resolvedParagraph());
    }
    const auto next = styles_.find(entry_.next);
    if (next != styles_.end())
        style.setNext(next->second.get());
}

} // namespace standin::rtf
