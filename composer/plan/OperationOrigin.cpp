#include "OperationOrigin.h"

#include <string_view>

namespace compose {

namespace {

constexpr std::size_t longestText = 60;

std::u16string numeral(int number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string call(std::u16string_view method, std::u16string_view argument)
{
    std::u16string text(method);
    return text.append(u"(").append(argument).append(u")");
}

std::u16string call(std::u16string_view method)
{
    return call(method, u"");
}

std::u16string quoted(std::u16string_view text)
{
    std::u16string quoted = u"\"";
    quoted.append(text.substr(0, longestText));
    return quoted.append(text.size() > longestText ? u"...\"" : u"\"");
}

struct Origin
{
    const std::function<std::u16string(const std::u16string&)>& tagOf;

    std::u16string operator()(const WriteText& text) const { return call(u"insertText", quoted(text.text)); }
    std::u16string operator()(const PutStyle& style) const { return call(u"setStyle", quoted(style.style)); }
    std::u16string operator()(const PutAlignment& /*alignment*/) const { return call(u"setTextAlign"); }
    std::u16string operator()(const PutFont& font) const
    {
        if (font.change.name)
            return call(u"setFontName", quoted(*font.change.name));
        if (font.change.size)
            return call(u"setFontSize", numeral(static_cast<int>(*font.change.size)));
        return call(u"setFontAttribute");
    }
    std::u16string operator()(const ClearFont& /*clear*/) const { return call(u"insertText"); }
    std::u16string operator()(const MakeTable& /*table*/) const { return call(u"startTable"); }
    std::u16string operator()(const ExtendTable& /*table*/) const { return call(u"addRow"); }
    std::u16string operator()(const AddField& field) const
    {
        return call(u"insertField", numeral(field.number));
    }
    std::u16string operator()(const AddEntry& entry) const
    {
        return call(u"endTOCEntry", quoted(entry.text));
    }
    std::u16string operator()(const AddLink& link) const
    {
        const bool isAddress = link.target.bookmark.empty();
        return call(u"insertXref", quoted(isAddress ? link.target.address : tagOf(link.target.bookmark)));
    }
    std::u16string operator()(const PlaceTag& tag) const
    {
        return call(u"insertTag", quoted(tagOf(tag.bookmark)));
    }
    std::u16string operator()(const AddPicture& picture) const
    {
        return call(u"insertImage", quoted(picture.picture->name));
    }
    std::u16string operator()(const RemoveText& /*removal*/) const { return call(u"insertField"); }
    std::u16string operator()(const BreakSection& /*section*/) const { return call(u"insertPageBreak"); }
    std::u16string operator()(const KeepBreak& /*pageBreak*/) const { return call(u"insertPageBreak"); }
    std::u16string operator()(const KeepContents& /*contents*/) const { return call(u"insertTOC"); }
};

} // namespace

std::u16string originOf(const Operation& operation,
                        const std::function<std::u16string(const std::u16string&)>& tagOf)
{
    return std::visit(Origin{tagOf}, operation);
}

} // namespace compose
